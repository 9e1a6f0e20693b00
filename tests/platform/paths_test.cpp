#include "platform/paths.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/error_number.h"
#include "support/temp_folder.h"

namespace vellumark::platform {
namespace {

using test::errorNumber;

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

}  // namespace
}  // namespace vellumark::platform
