// Elements of the galleries, from the command line.

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "app/program.h"
#include "decks/deck_builder.h"
#include "support/saved_decks.h"

namespace vellumark::test {

using namespace decks;
namespace {

namespace fs = std::filesystem;

class Insert : public testing::Test {
 protected:
  Insert() { test::copyInstallation(root_); }
  std::string makeDeck(double width, double height) {
    DeckBuilder builder;
    builder.size(width, height).slide().shape("rect", 10, 10, 50, 50).named("A");
    builder.slide();
    builder.save(deck_);
    return deck_;
  }
  Outcome insert(const std::string& element, std::vector<std::string> arguments = {}) {
    arguments.insert(arguments.begin(), {"insert", element, deck_, "--root", root_});
    return runProgram(arguments);
  }
  /// The right end of the rightmost shape of a slide.
  static double rightEnd(const std::string& deck, std::size_t slide) {
    double right = 0;
    const auto told = nlohmann::json::parse(runProgram({"show", deck, "--json"}).out);
    for (const auto& shape : told["slides"][slide]["shapes"]) {
      right = std::max(right, shape["left"].get<double>() + shape["width"].get<double>());
    }
    return right;
  }

  TempFolder folder_;
  std::string root_ = (folder_.root() / "root").string();
  std::string deck_ = folder_.path("deck.pptx"), out_ = folder_.path("out.pptx");
};

TEST_F(Insert, ComesInTheStyleThatSuitsTheSlides) {
  const std::string element = "Diagrams/Processes/Five steps";
  for (const auto& [width, style] :
       {std::pair{960.0, "Vellumark Blue Wide"}, std::pair{720.0, "Vellumark Blue"}}) {
    makeDeck(width, 540);
    const Outcome outcome = insert(element, {"--slide", "2", "-o", out_});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(packageFaults(readZipFile(out_)), std::vector<std::string>());
    EXPECT_GT(rightEnd(out_, 1), width * 0.85) << style;
    EXPECT_LE(rightEnd(out_, 1), width) << style;
    EXPECT_EQ(rightEnd(out_, 0), 60);
  }
  makeDeck(960, 540);
  ASSERT_EQ(insert("Diagrams/Processes/2", {"--style", "vellumark grey", "-o", out_}).status, 0)
      << "by number, in a style of one's own";
  EXPECT_LE(rightEnd(out_, 0), 720);
}

// From one deck into the library, from there into another one.
TEST_F(Insert, OnesOwnElementsGoFromDeckToDeck) {
  makeDeck(960, 540);
  const auto add = [&](const std::string& name) {
    return runProgram({"run", "addMyElements", deck_, "--root", root_, "--select", "A", "--dialog",
                       "myElementsAdd: elemName=" + name + "; btnAddElement"});
  };
  const Outcome added = add("Box & frame");
  ASSERT_EQ(added.status, 0) << added.err;
  EXPECT_EQ(added.out, "the deck is as it was\n");
  EXPECT_NE(add("Box & frame").err.find("already exists"), std::string::npos);
  const std::string other = folder_.path("other.pptx");
  DeckBuilder builder;
  builder.slide();
  builder.save(other);
  const Outcome inserted =
      runProgram({"insert", "My Elements/Miscellaneous/Box & frame", other, "--root", root_, "-o", out_});
  ASSERT_EQ(inserted.status, 0) << inserted.err;
  EXPECT_EQ(rightEnd(out_, 0), 60);
  EXPECT_EQ(packageFaults(readZipFile(out_)), std::vector<std::string>());
  const Outcome ribbon = runProgram({"ribbon", "--root", root_});
  EXPECT_NE(ribbon.out.find("Miscellaneous: Box & frame"), std::string::npos) << ribbon.out;
  EXPECT_TRUE(fs::exists(root_ + "/user/myelements/thumbs/256.png"));
}

TEST_F(Insert, WhatIsNotThereIsToldInOneLine) {
  makeDeck(960, 540);
  const struct {
    std::string element;
    std::vector<std::string> arguments;
    int status;
    std::string told;
  } cases[] = {
      {"Diagrams/Processes/Six", {}, 2, "there is no element \"Six\"; there are Three steps, Five steps"},
      {"Diagrams/Cycles/One", {}, 2, "\"vellumark ribbon\" lists them"},
      {"Five steps", {}, 2, "there is no element \"Five steps\""},
      {"My Elements/Arrows/1", {}, 2, "\"vellumark ribbon\" lists them"},
      {"a\"b/c/d", {}, 2, "\"vellumark ribbon\" lists them"},
      {"Diagrams/Processes/0", {}, 2, "there is no element \"0\""},
      {"Diagrams/Processes/1", {"--style", "Red"}, 2, "there is no style \"Red\""},
      {"Diagrams/Processes/1", {"--view", "sorter"}, 1, "Please go to normal view."},
  };
  for (const auto& c : cases) {
    const Outcome outcome = insert(c.element, c.arguments);
    EXPECT_EQ(outcome.status, c.status) << c.element << outcome.err;
    EXPECT_NE(outcome.err.find(c.told), std::string::npos) << c.element << ": " << outcome.err;
    EXPECT_EQ(failureLines(outcome.err).size(), 1U) << outcome.err;
  }
  fs::remove(root_ + "/customization/styles/Vellumark Blue/processes.pptx");
  const Outcome missing = insert("Diagrams/Processes/1", {"--style", "Vellumark Blue", "-o", out_});
  EXPECT_EQ(missing.status, 1);
  EXPECT_NE(missing.err.find("could not be found"), std::string::npos) << missing.err;
}

// Opening the menus makes their pictures, once.
TEST_F(Insert, TheRibbonListsElementsAndMakesTheirPictures) {
  const Outcome outcome = runProgram({"ribbon", "--root", root_});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_NE(outcome.out.find("Processes: Three steps | Five steps"), std::string::npos) << outcome.out;
  EXPECT_EQ(outcome.out.find("without image"), std::string::npos) << outcome.out;
  const fs::path thumbs = root_ + "/customization/styles/thumbs";
  int pictures = 0;
  for (const auto& entry : fs::directory_iterator(thumbs)) {
    const std::string bytes = readFile(entry.path().string());
    EXPECT_EQ(bytes.substr(1, 3), "PNG") << entry.path();
    EXPECT_GT(bytes.size(), 1000U) << entry.path() << " shows nothing";
    ++pictures;
  }
  EXPECT_GE(pictures, 11);
  fs::remove_all(thumbs);
  ASSERT_EQ(runProgram({"ribbon", "--root", root_}).status, 0);
  EXPECT_FALSE(fs::exists(thumbs)) << "no template is newer than the last run";
}

}  // namespace
}  // namespace vellumark::test
