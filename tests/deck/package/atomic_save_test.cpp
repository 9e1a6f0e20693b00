// A save that is killed at any moment, or runs out of space, leaves the old file or the new file.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <random>
#include <tuple>

#include "deck/package/package.h"
#include "decks/deck_builder.h"
#include "support/saved_decks.h"
#include "support/temp_folder.h"

namespace vellumark::deck {
namespace {

[[noreturn]] void saveForever(const std::string& path) {
  for (int i = 0;; ++i) {
    const auto package = Package::open(path);
    const PartRef slide = package->part("ppt/slides/slide1.xml");
    pugi::xml_node data = slide->root().child("p:cSld");
    if (!data.attribute("name")) data.append_attribute("name");
    data.attribute("name").set_value(std::to_string(i).c_str());
    slide->touch();
    package->save(path);
  }
}

TEST(AtomicSave, SurvivesBeingKilled) {
  test::TempFolder folder;
  const std::string path = folder.path("deck.pptx");
  decks::DeckBuilder deck;
  auto slide = deck.slide("blank");
  for (int i = 0; i < 200; ++i) slide.shape("rect", i, i, 50, 50).text("some text");
  deck.save(path);
  std::mt19937 random(7);
  for (int round = 0; round < 40; ++round) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      try {
        saveForever(path);
      } catch (...) {
        _exit(1);
      }
    }
    usleep(1000 + random() % 25'000);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the saving itself failed";
    ASSERT_EQ(test::packageFaults(test::readZipFile(path)), std::vector<std::string>{}) << "round " << round;
  }
}

std::vector<std::string> filesIn(const test::TempFolder& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.root())) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

TEST(AtomicSave, NothingIsLeftBeside) {
  test::TempFolder folder;
  const std::string path = folder.path("deck.pptx");
  decks::DeckBuilder deck;
  for (int i = 0; i < 200; ++i) deck.slide("blank").shape("rect", i, i, 50, 50).text("some text");
  deck.save(path);
  const std::vector<std::string> alone = {"deck.pptx"};
  std::mt19937 random(11);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGTERM, SIGINT, SIGHUP, SIGTERM, SIGINT, SIGHUP}) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) saveForever(path);
    // Until it is within a save, and then some.
    for (int i = 0; i < 2000 && filesIn(folder) == alone; ++i) usleep(1000);
    usleep(random() % 5'000);
    kill(child, signal);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
    EXPECT_EQ(filesIn(folder), alone);
  }
  // What a killed program left goes when it is no longer new, what somebody still writes stays.
  const auto old = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
  for (const char* name : {".vellumark-left00.tmp", ".vellumark-writes.tmp", ".vellumark-new000.tmp"}) {
    std::filesystem::last_write_time(folder.write(name, "half a deck"), old);
  }
  std::filesystem::last_write_time(folder.path(".vellumark-new000.tmp"),
                                   std::filesystem::file_time_type::clock::now());
  const int writer = open(folder.path(".vellumark-writes.tmp").c_str(), O_RDONLY);
  ASSERT_EQ(flock(writer, LOCK_EX), 0);
  Package::open(path)->save(path);
  close(writer);
  EXPECT_EQ(filesIn(folder),
            (std::vector<std::string>{".vellumark-new000.tmp", ".vellumark-writes.tmp", "deck.pptx"}));
}

TEST(AtomicSave, KeepsOwnerAndRights) {
  test::TempFolder folder;
  const std::string path = folder.path("deck.pptx");
  decks::DeckBuilder deck;
  deck.slide("blank");
  deck.save(path);
  // Only root can give files away, and not every file system takes attributes: otherwise all is as it was.
  constexpr uid_t somebody = 12'345;
  (void)!chown(path.c_str(), somebody, somebody);
  chmod(path.c_str(), 0640);
  setxattr(path.c_str(), "user.note", "kept", 4, 0);
  const auto rights = [&] {
    struct stat now {};
    stat(path.c_str(), &now);
    char note[8] = {};
    getxattr(path.c_str(), "user.note", note, sizeof note - 1);
    return std::tuple(now.st_uid, now.st_gid, now.st_mode, std::string(note));
  };
  const auto before = rights();
  Package::open(path)->save(path);
  EXPECT_EQ(rights(), before);
}

// A limit on the size of files stands for a disk that is full.
TEST(AtomicSave, AFullDiskLosesNothing) {
  test::TempFolder folder;
  const std::string path = folder.path("deck.pptx");
  decks::DeckBuilder deck;
  deck.slide("blank").shape("rect", 0, 0, 50, 50);
  deck.save(path);
  const std::string before = test::readFile(path);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{4096, 4096};
    setrlimit(RLIMIT_FSIZE, &limit);
    try {
      const auto package = Package::open(path);
      package->part("ppt/slides/slide1.xml")->touch();
      package->save(path);
      _exit(1);
    } catch (const FormatError& error) {
      _exit(error.where() == path ? 0 : 2);
    }
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(test::readFile(path), before);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.root()), {}), 1)
      << "something is left behind";
}

}  // namespace
}  // namespace vellumark::deck
