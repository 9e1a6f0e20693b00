// A save that is killed at any moment, or runs out of space, leaves the old file or the new file.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <random>

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
