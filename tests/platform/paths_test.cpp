#include "platform/paths.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "base/error_number.h"
#include "platform/environment_guard.h"
#include "support/temp_folder.h"

namespace vellumark::platform {
namespace {

using test::EnvironmentGuard;
using test::errorNumber;

TEST(Paths, MapBetweenTheTwoForms) {
  const std::pair<const char*, const char*> cases[] = {
      {"/no-such/vellumark\\program\\", "/no-such/vellumark/program/"},
      {"\\no-such\\a\\b.txt", "/no-such/a/b.txt"},
      {"no-such\\a", "no-such/a"},
      {"\\", "/"},
      {"", ""}};
  for (const auto& [logic, system] : cases) EXPECT_EQ(toSystem(logic), system);
  EXPECT_EQ(fromSystem("/opt/vellumark/"), "\\opt\\vellumark\\");
}

TEST(Paths, FindNamesInAnotherCase) {
  const test::TempFolder folder;
  folder.write("Customization/Menu.xml", "upper");
  folder.write("Customization/other/a", "");
  const std::string root = folder.root().string();
  EXPECT_EQ(toSystem(root + "\\CUSTOMIZATION\\menu.XML"), root + "/Customization/Menu.xml");
  EXPECT_EQ(toSystem(root + "\\customization\\OTHER\\"), root + "/Customization/other/");
  EXPECT_EQ(toSystem(root + "\\customization\\New.xml"), root + "/Customization/New.xml");
  EXPECT_EQ(toSystem(root + "\\customization\\Sub\\other\\x"), root + "/Customization/Sub/other/x");
  EXPECT_EQ(readFile(root + "\\customization\\MENU.xml"), "upper");

  folder.write("Customization/menu.xml", "exact");  // the exact name goes first
  EXPECT_EQ(readFile(root + "\\customization\\menu.xml"), "exact");
  EXPECT_EQ(readFile(root + "\\customization\\MENU.XML"), "upper");
}

TEST(Paths, TellFilesFromFolders) {
  const test::TempFolder folder;
  const std::string root = folder.root().string();
  folder.write("file", "x");
  EXPECT_TRUE(fileExists(root + "\\file"));
  EXPECT_FALSE(directoryExists(root + "\\file"));
  EXPECT_TRUE(directoryExists(root + "\\"));
  EXPECT_FALSE(fileExists(root));
  EXPECT_FALSE(fileExists(root + "\\none"));
  EXPECT_FALSE(fileExists(root + "\\file\\below"));
  EXPECT_FALSE(fileExists(""));
}

TEST(Paths, FilesAndFoldersComeAndGo) {
  const test::TempFolder folder;
  const std::string root = folder.root().string() + "\\";
  const std::string bytes = std::string("a\0\r\n\xFF", 5) + std::string(200000, 'x');
  makeDirectory(root + "sub\\");
  folder.write("sub/b", bytes);
  folder.write("sub/a", "");
  EXPECT_EQ(readFile(root + "sub\\b"), bytes);
  EXPECT_EQ(listFolder(root + "sub\\"), (std::vector<std::string>{"a", "b"}));
  deleteFile(root + "sub\\b");
  EXPECT_EQ(listFolder(root + "sub"), std::vector<std::string>{"a"});
}

TEST(Paths, FailuresHaveTheirNumbers) {
  const test::TempFolder folder;
  const std::string root = folder.root().string() + "\\";
  folder.write("file", "x");
  EXPECT_EQ(errorNumber([&] { return readFile(root + "none"); }), 53);
  EXPECT_EQ(errorNumber([&] { return readFile(root + "none\\file"); }), 76);
  EXPECT_EQ(errorNumber([&] { return readFile(root); }), 75);
  EXPECT_EQ(errorNumber([&] { return deleteFile(root + "none"), 0; }), 53);
  EXPECT_EQ(errorNumber([&] { return deleteFile(root), 0; }), 75);
  EXPECT_EQ(errorNumber([&] { return makeDirectory(root + "FILE"), 0; }), 75);
  EXPECT_EQ(errorNumber([&] { return makeDirectory(root), 0; }), 75);
  EXPECT_EQ(errorNumber([&] { return makeDirectory(root + "none\\sub"), 0; }), 76);
  EXPECT_EQ(errorNumber([&] { return listFolder(root + "none"); }), 76);
}

TEST(Paths, FoldersOfTheSystem) {
  const EnvironmentGuard home("HOME", "/home/me");
  struct {
    const char* variable;
    std::string (*folder)();
    const char* usual;
    const char* fromVariable;
  } const cases[] = {
      {"TMPDIR", temporaryFolder, "\\tmp\\", "\\a\\b\\"},
      {"XDG_CACHE_HOME", internetCacheFolder, "\\home\\me\\.cache\\", "\\a\\b\\"},
      {"XDG_CONFIG_HOME", userSettingsFolder, "\\home\\me\\.config\\vellumark\\", "\\a\\b\\vellumark\\"}};
  for (const auto& test : cases) {
    const EnvironmentGuard guard(test.variable, std::nullopt);
    EXPECT_EQ(test.folder(), test.usual);
    guard.set("relative");
    EXPECT_EQ(test.folder(), test.usual);
    guard.set("/a//x/../b/");
    EXPECT_EQ(test.folder(), test.fromVariable);
  }
  EXPECT_TRUE(executablePath().ends_with("\\test_platform")) << executablePath();
  EXPECT_TRUE(fileExists(executablePath()));
}

}  // namespace
}  // namespace vellumark::platform
