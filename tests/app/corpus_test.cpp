// Decks from elsewhere, where they are at hand: each is listed or refused in one clear line, and comes back
// whole from a command and a save.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "app/program.h"
#include "support/saved_decks.h"

namespace vellumark::test {

using namespace decks;
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

std::vector<fs::path> decks() {
  std::vector<fs::path> found;
  std::error_code missing;
  for (const auto& entry : fs::directory_iterator(TEST_SHARED_DECKS, missing)) {
    if (entry.path().extension() == ".pptx") found.push_back(entry.path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

/// The first slide with two shapes, from 1; 0 where there is none.
int slideWithTwoShapes(const Json& deck) {
  for (const Json& slide : deck["slides"]) {
    if (slide["shapes"].size() >= 2) return slide["index"];
  }
  return 0;
}

/// What the checker of packages says about a saved deck that it doesn't say about the original.
std::string newFaults(const fs::path& original, const std::string& saved) {
  const std::string checker = TEST_SHARED_DECKS "/../tools/deck-check";
  if (!fs::exists(checker) || runProgram("python3", {"-c", "import lxml.etree"}).status != 0) return "";
  const Outcome outcome = runProgram("python3", {checker, "--against", original, saved});
  return outcome.status == 0 ? "" : outcome.out + outcome.err;
}

TEST(Corpus, DecksComeBackWhole) {
  if (decks().empty()) GTEST_SKIP() << "no decks in " TEST_SHARED_DECKS;
  const TempFolder folder;
  const std::string out = folder.path("out.pptx");
  int refused = 0, changed = 0;
  for (const fs::path& deck : decks()) {
    SCOPED_TRACE(deck.filename());
    const Outcome listed = runProgram({"show", deck, "--json"});
    if (listed.status != 0) {
      EXPECT_EQ(listed.status, 3);
      EXPECT_TRUE(isFailureLine(listed.err)) << listed.err;
      ++refused;
      continue;
    }
    const int slide = slideWithTwoShapes(Json::parse(listed.out));
    if (slide == 0) continue;

    fs::remove(out);
    const Outcome ran =
        runCommand("alignLefts", deck, {"--slide", std::to_string(slide), "--select", "@1,@2", "-o", out});
    EXPECT_EQ(ran.status, 0) << ran.err;
    if (!fs::exists(out)) continue;
    const auto parts = changedEntries(readZipFile(deck), readZipFile(out));
    EXPECT_LE(parts.size(), 1u) << testing::PrintToString(parts);
    for (const std::string& part : parts) EXPECT_TRUE(part.starts_with("ppt/slides/")) << part;
    EXPECT_EQ(newFaults(deck, out), "");
    ++changed;
  }
  EXPECT_LE(refused, 2);
  EXPECT_GE(changed, 15);
}

}  // namespace
}  // namespace vellumark::test
