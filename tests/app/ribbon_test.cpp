// The ribbon as the program tells it.

#include <gtest/gtest.h>

#include "app/program.h"
#include "base/text.h"
#include "decks/deck_builder.h"

namespace vellumark::test {
namespace {

class RibbonTest : public testing::Test {
 protected:
  RibbonTest() {
    decks::DeckBuilder builder;
    auto slide = builder.slide();
    slide.shape("rect", 10, 20, 100, 50).named("A");
    slide.shape("rect", 200, 100, 120, 200).named("B");
    builder.save(deck_);
  }
  ~RibbonTest() override { setCounter("hostVersionAsReported", "0"); }

  std::string ribbon(const char* host) {
    const Outcome outcome = runProgram(
        {"ribbon", deck_, "--select", "A,B", "--host", host, "--root", TEST_SOURCE_DIR "/product"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return outcome.out;
  }

  TempFolder folder_;
  const std::string deck_ = folder_.path("deck.pptx");
};

TEST_F(RibbonTest, LaterHostsHaveTheRibbonOfTheLastKnown) {
  const std::string known = ribbon("14.0");
  EXPECT_NE(known.find("Align left to master left [1032] (LL)\n"), std::string::npos) << known;
  EXPECT_EQ(ribbon("15.0"), known);
  EXPECT_EQ(ribbon("16.0"), known);
}

/// What the add-in answered first stays, where nothing tells the host of the selection.
TEST_F(RibbonTest, AnswersAreKeptUntilTheAddInCallsForNewOnes) {
  setCounter("hostVersionAsReported", "1");
  const std::string kept = ribbon("16.0");
  EXPECT_NE(kept.find("Align left to master left [1032] (LL), disabled\n"), std::string::npos) << kept;
  EXPECT_GT(base::split(base::replaceAll(kept, ", disabled", "\x01"), '\x01').size(), 25U);
  EXPECT_EQ(ribbon("14.0").find("[1032] (LL), disabled"), std::string::npos);
}

}  // namespace
}  // namespace vellumark::test
