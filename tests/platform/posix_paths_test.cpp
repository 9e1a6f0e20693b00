// What paths mean on this system.

#include <gtest/gtest.h>

#include "platform/environment_guard.h"
#include "platform/paths.h"
#include "support/temp_folder.h"

namespace vellumark::platform {
namespace {

using test::EnvironmentGuard;

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
