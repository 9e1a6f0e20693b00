#include "platform/shell.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <thread>

#include "base/error_number.h"
#include "platform/environment_guard.h"
#include "platform/paths.h"
#include "support/temp_folder.h"

namespace vellumark::platform {
namespace {

class Shell : public testing::Test {
 protected:
  /// Takes a script as the opener.
  void useOpener(const std::string& script) {
    const std::string path = folder_.write("opener", "#!/bin/sh\n" + script + "\n");
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    opener_.set(path);
  }

  test::TempFolder folder_;
  test::EnvironmentGuard opener_{"VELLUMARK_OPENER", std::nullopt};
};

TEST_F(Shell, HandsTheAddressOnAsOneArgument) {
  useOpener("printf '%s|' \"$#\" \"$@\" > " + folder_.root().string() + "/seen");
  const std::string url = "mailto:a@b.c?subject=x y'; rm -rf \"$HOME\" &";
  EXPECT_EQ(openURL(url), shell::opened);
  EXPECT_EQ(readFile(folder_.path("seen")), "1|" + url + "|");
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "no child is left over";
  EXPECT_EQ(errno, ECHILD);
}

TEST_F(Shell, ReportsHowTheOpenerFailed) {
  const std::pair<const char*, int> cases[] = {
      {"exit 0", 33}, {"exit 2", 2}, {"exit 3", 31}, {"exit 4", 5}, {"exit 1", 5}, {"kill -9 $$", 5},
  };
  for (const auto& [script, result] : cases) {
    useOpener(script);
    EXPECT_EQ(openURL("http://x/"), result) << script;
  }
  opener_.set("/no/such/opener");
  EXPECT_EQ(openURL("http://x/"), shell::fileNotFound);
  opener_.set(folder_.write("not-executable", "x"));
  EXPECT_EQ(openURL("http://x/"), shell::accessDenied);
  useOpener("exit 0");
  EXPECT_EQ(openURL("--version"), shell::fileNotFound);
  EXPECT_EQ(openURL(""), shell::fileNotFound);
}

TEST_F(Shell, DoesNotWaitForTheProgramThatOpens) {
  useOpener("sleep 3; exit 2");
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(openURL("http://x/"), shell::opened);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
}

TEST_F(Shell, ShowsTheFolderOfAFile) {
  useOpener("printf '%s|' \"$#\" \"$@\" > '" + folder_.path("seen") + "'");
  const std::string file = folder_.write("sub/my deck.pptx", "x");
  showInFolder(fromSystem(file));
  EXPECT_EQ(readFile(folder_.path("seen")), "1|" + folder_.path("sub/") + "|");
  opener_.set("/no/such/opener");
  EXPECT_EQ(test::errorNumber([&] { showInFolder(file); }), base::errors::fileNotFound);
}

TEST_F(Shell, OpensHelpThatIsThere) {
  useOpener("exit 0");
  const std::string file = folder_.write("zorp.chm", "x");
  EXPECT_TRUE(openHelp(fromSystem(file), 1001));
  EXPECT_FALSE(openHelp(fromSystem(file) + "x", 1001));
  useOpener("exit 3");
  EXPECT_FALSE(openHelp(fromSystem(file), 1001));
}

}  // namespace
}  // namespace vellumark::platform
