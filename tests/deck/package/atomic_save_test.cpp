// A save that is killed at any moment leaves the old file or the new file.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "deck/package/package.h"
#include "support/deck_builder.h"
#include "support/temp_folder.h"
#include "support/zip_entries.h"

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
  test::DeckBuilder deck;
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

}  // namespace
}  // namespace vellumark::deck
