// What keeps programs that run at the same time out of each other's files.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <optional>

#include "base/error.h"
#include "platform/environment_guard.h"
#include "platform/file_state.h"
#include "platform/path_lock.h"
#include "platform/paths.h"
#include "platform/private_folder.h"
#include "support/temp_folder.h"

namespace vellumark::platform {
namespace {

namespace fs = std::filesystem;

TEST(PathLock, OneHasItAtATime) {
  const test::TempFolder folder;
  const std::string file = folder.write("a", ""), link = folder.path("link");
  fs::create_symlink(file, link);
  for (const std::string& path : {file, folder.root().string()}) {
    std::optional<PathLock> first(path);
    EXPECT_TRUE(first->held());
    EXPECT_FALSE(PathLock(path).held());
    first.reset();
    EXPECT_TRUE(PathLock(path).held());
  }
  const PathLock lock(file);
  EXPECT_FALSE(PathLock(link).held()) << "another name of the same file";
  EXPECT_TRUE(PathLock(folder.path("missing")).held()) << "nothing there that could be locked";
}

TEST(PathLock, IsGoneWithItsProcess) {
  const test::TempFolder folder;
  const pid_t child = fork();
  if (child == 0) {
    static const PathLock lock(folder.root().string());
    _exit(lock.held() ? 0 : 1);  // without any clean-up
  }
  const PathLock lock(folder.root().string(), std::chrono::seconds(10));
  EXPECT_TRUE(lock.held());
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
}

TEST(FileState, TellsFilesAndTheirContents) {
  const test::TempFolder folder;
  const std::string a = folder.write("a", "one"), b = folder.write("b", "one");
  fs::create_symlink(a, folder.path("link"));
  fs::create_hard_link(a, folder.path("hard"));
  EXPECT_TRUE(isSameFile(a, folder.path("link")));
  EXPECT_TRUE(isSameFile(a, fromSystem(folder.root().string() + "/./HARD")));
  EXPECT_FALSE(isSameFile(a, b));
  EXPECT_FALSE(isSameFile(a, folder.path("missing")));

  const auto before = fileState(a);
  EXPECT_EQ(fileState(a), before);
  writeFile(a, "one");
  EXPECT_NE(fileState(a), before) << "written anew, though the same";
}

TEST(PrivateFolder, IsTheUsersOwnUnderANameOfItsOwn) {
  const test::TempFolder folder;
  const test::EnvironmentGuard temporary("TMPDIR", folder.root().string());
  const std::string first = newPrivateFolder(), second = newPrivateFolder();
  EXPECT_NE(first, second);
  EXPECT_EQ(fs::status(toSystem(first)).permissions(), fs::perms::owner_all);

  writeFile(first + "x", "");
  dropPrivateFolder(first + "y");
  EXPECT_TRUE(directoryExists(first)) << "something lies in it";
  deleteFile(first + "x");
  dropPrivateFolder(first + "x");
  EXPECT_FALSE(directoryExists(first));
  fs::create_directory(folder.root() / "mine");
  dropPrivateFolder(folder.path("mine/x"));
  EXPECT_TRUE(fs::exists(folder.root() / "mine")) << "somebody else's";

  const test::EnvironmentGuard nowhere("TMPDIR", folder.path("no"));
  EXPECT_THROW(newPrivateFolder(), base::Error);
}

}  // namespace
}  // namespace vellumark::platform
