// Wrong usage and unreadable decks: the exit status, and one line that says what, where and what to do.

#include <gtest/gtest.h>

#include "app/program.h"
#include "decks/deck_builder.h"

namespace vellumark::test {

using namespace decks;
namespace {

class Usage : public testing::Test {
 protected:
  Usage() {
    DeckBuilder builder;
    auto slide = builder.slide();
    slide.shape("rect", 10, 10, 50, 50).named("A");
    slide.shape("rect", 100, 100, 50, 50).named("B");
    slide.shape("rect", 200, 100, 50, 50).named("B");
    const auto group = slide.group(300, 100, 50, 50).named("G");
    group.children().shape("rect", 300, 100, 50, 50).named("Inner").withId(77);
    builder.save(deck_);
    builder.save(withMacros_);
  }
  TempFolder folder_;
  std::string deck_ = folder_.path("deck.pptx");
  std::string withMacros_ = folder_.path("deck.pptm");
};

TEST_F(Usage, MistakesAreToldInOneLine) {
  const struct {
    std::vector<std::string> arguments;
    std::string told;
  } cases[] = {
      {{}, "--help"},
      {{"shwo", deck_}, "there is no subcommand \"shwo\""},
      {{"show"}, "DECK is required"},
      {{"show", deck_, deck_}, "not expected"},
      {{"run", "alignLefts", deck_, "--slide", "one"}, "--slide"},
      {{"run", "alignLefts", deck_, "--slide", "0", "--select", "A"}, "--slide 0: the deck has 1 slide"},
      {{"run", "alignLefts", deck_, "--slide", "2"}, "--slide 2: the deck has 1 slide"},
      {{"run", "alignLefts", deck_, "--host", "13.0"}, "--host"},
      {{"run", "alignLefts", deck_, "--view", "reading"}, "there is no view \"reading\""},
      {{"run", "alignLefts", deck_, "--select", "A,C"}, "--select: no shape \"C\" on the slide in view"},
      {{"run", "alignLefts", deck_, "--select", "A,B"}, "2 shapes are called \"B\""},
      {{"run", "alignLefts", deck_, "--select", "@5,A"}, "no shape \"@5\""},
      {{"run", "alignLefts", deck_, "--select", "A,@1"}, "\"@1\" is selected already"},
      {{"run", "alignLefts", deck_, "--select", "A", "--slides", "1"}, "excludes"},
      {{"run", "alignLefts", deck_, "--slides", "3-1"}, "\"3-1\" is no slide and no range"},
      {{"run", "alignLefts", deck_, "--slides", "1-9"}, "the deck has no slide 9"},
      {{"run", "alignLefts", deck_, "--text", "A:1"}, "\"A:1\" is no stretch of text"},
      {{"run", "alignLeft", deck_}, "alignLeft: there is no such command"},
      {{"run", "zp_9999", deck_}, "zp_9999: there is no such command"},
      {{"run", "alignLefts", deck_, "-o", "x.pptx", "--in-place"}, "excludes"},
      {{"run", "alignLefts", withMacros_, "-o", "x.ppsx"}, "macros behind; give a name that ends in .ppsm"},
      {{"run", "alignLefts", deck_, "--root", folder_.path("nowhere")}, "there is no such folder"},
      {{"demo", deck_}, "-o is required"},
      {{"run", "alignLefts", deck_, "-o", ""}, "-o: names no file"},
      {{"run", "alignLefts", deck_, "--select", "A,#77"}, "\"#77\" lies in the group \"G\""},
      {{"run", "alignLefts", deck_, "--copy", "C", "--select", "A"}, "--copy: no shape \"C\""},
  };
  for (const auto& c : cases) {
    auto arguments = c.arguments;
    if (!arguments.empty() && arguments[0] == "run" && arguments.back() != folder_.path("nowhere")) {
      arguments.insert(arguments.end(), {"--root", TEST_SOURCE_DIR "/product"});
    }
    const Outcome outcome = runProgram(arguments);
    EXPECT_EQ(outcome.status, 2) << c.told << "\n" << outcome.err;
    const auto lines = failureLines(outcome.err);
    ASSERT_EQ(lines.size(), 1u) << c.told << "\n" << outcome.err;
    EXPECT_NE(lines[0].find(c.told), std::string::npos) << lines[0];
    EXPECT_EQ(outcome.out, "");
  }
}

TEST_F(Usage, DecksThatCannotBeReadEndWithStatus3) {
  const std::string whole = readFile(deck_);
  const struct {
    std::string deck, told;
  } cases[] = {
      {folder_.path("missing.pptx"), "there is no such file"},
      {folder_.root().string(), "is a folder"},
      {"/dev/zero", "is no file"},
      {folder_.write("empty.pptx", ""), "empty.pptx"},
      {folder_.write("text.pptx", "This is no presentation."), "text.pptx"},
      {folder_.write("half.pptx", whole.substr(0, whole.size() / 2)), "half.pptx"},
  };
  for (const auto& c : cases) {
    for (const Outcome& outcome : {runProgram({"show", c.deck}), runCommand("alignLefts", c.deck, {})}) {
      EXPECT_EQ(outcome.status, 3) << c.deck << "\n" << outcome.err;
      EXPECT_EQ(outcome.out, "");
      const auto lines = failureLines(outcome.err);
      ASSERT_EQ(lines.size(), 1u) << outcome.err;
      EXPECT_NE(lines[0].find(c.told), std::string::npos) << lines[0];
    }
  }
}

TEST_F(Usage, HelpTeachesWithExamples) {
  for (const std::string subcommand : {"show", "commands", "run", "toolbars", "demo"}) {
    const Outcome outcome = runProgram({subcommand, "--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out.find("vellumark " + subcommand + " "), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.out.find("Example"), std::string::npos) << outcome.out;
  }
}

}  // namespace
}  // namespace vellumark::test
