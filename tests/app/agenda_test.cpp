// vellumark agenda: lists of items in and out, slides through the dialog.

#include <gtest/gtest.h>

#include "agenda_items.h"
#include "agenda_matching.h"
#include "app/program.h"
#include "deck/embedded_host.h"
#include "decks/deck_builder.h"
#include "failure.h"
#include "support/temp_folder.h"

namespace vellumark::app {
namespace {

using test::Outcome;

class Agenda : public testing::Test {
 protected:
  Agenda() {
    decks::DeckBuilder deck;
    deck.slide("titleOnly").placeholder("title").text("First");
    deck.save(deck_);
  }
  static Outcome agenda(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "agenda");
    arguments.insert(arguments.end(), {"--root", TEST_SOURCE_DIR "/product"});
    return test::runProgram(arguments);
  }
  /// What the program makes of a list; the items as they come out again.
  std::string roundTrip(const std::string& file) {
    const Outcome made = agenda({deck_, "--items", file, "-o", folder_.path("out.pptx")});
    EXPECT_EQ(made.status, 0) << made.err;
    return agenda({folder_.path("out.pptx"), "--export"}).out;
  }
  /// What is wrong with a file of items; empty for nothing.
  std::string faultOf(const std::string& name, const std::string& text) {
    const std::string path = folder_.write(name, text);
    try {
      readAgendaItems(path);
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.exit(), Exit::usage);
      const std::string line = failure.what();
      EXPECT_TRUE(line.starts_with(path)) << line;
      return line.substr(path.size());
    }
    return "";
  }
  /// The ids of the slides whose text has a bar with each of these items highlighted.
  static std::vector<int> slideIds(const std::string& path) {
    deck::EmbeddedHost host;
    const host::Slides slides = host.open(path).Slides();
    std::vector<int> ids;
    for (int i = 1; i <= slides.Count(); ++i) ids.push_back(slides.Item(i).SlideID());
    return ids;
  }

  test::TempFolder folder_;
  std::string deck_ = folder_.path("deck.pptx");
};

constexpr const char* header = "level,text,responsible,minutes,break,shown,own slide\n";

TEST_F(Agenda, ListsGoInAndComeOutAgain) {
  EXPECT_EQ(roundTrip(folder_.write("a.txt", "Welcome\r\n\n\tGoals\n  Round\nÄpfel, Birnen\n")),
            std::string(header) +
                "1,Welcome,,30,no,yes,yes\n2,Goals,,30,no,yes,yes\n2,Round,,30,no,yes,yes\n"
                "1,\"Äpfel, Birnen\",,30,no,yes,yes\n");
  const std::string csv = std::string(header) +
                          "1,\"Say \"\"yes\"\"\",Ann,0,no,yes,yes\n1,Pause,,15,yes,yes,no\n"
                          "1,Setup,,1440,no,no,no\n";
  EXPECT_EQ(roundTrip(folder_.write("b.csv", csv)), csv);
  // Another order, separator and encoding, and columns that are left out.
  EXPECT_EQ(roundTrip(folder_.write("c.txt", "Text;Minutes;OWN_SLIDE;shown\nCaf\xe9;5;;\nB;;;no\nC;;no;x\n")),
            std::string(header) + "1,Café,,5,no,yes,yes\n1,B,,30,no,no,no\n1,C,,30,no,yes,no\n");
}

TEST_F(Agenda, SlidesOfItemsThatStayKeepTheirPlaces) {
  const std::string first = folder_.path("first.pptx"), second = folder_.path("second.pptx");
  EXPECT_EQ(agenda({deck_, "--items", folder_.write("a.txt", "A\nB\n  B1\nC\n"), "-o", first}).status, 0);
  const std::vector<int> before = slideIds(first);
  ASSERT_EQ(before.size(), 5U);
  const Outcome made = agenda({first, "--items", folder_.write("b.txt", "New\nC\nB\n  New too\n  B1\n"),
                               "--style", "vellumark grey", "--start", "13:30", "--times", "-o", second});
  EXPECT_EQ(made.status, 0) << made.err;
  const std::vector<int> after = slideIds(second);
  ASSERT_EQ(after.size(), 6U);
  EXPECT_EQ(std::vector<int>(after.begin(), after.begin() + 4),
            (std::vector<int>{before[0], before[2], before[3], before[4]}))
      << "that of A goes, the others stay where they are";
  EXPECT_NE(made.out.find("  4   30  C"), std::string::npos) << made.out;
  EXPECT_EQ(agenda({second, "--export"}).out,
            std::string(header) +
                "1,New,,30,no,yes,yes\n1,C,,30,no,yes,yes\n1,B,,30,no,yes,yes\n2,New too,,30,no,yes,yes\n"
                "2,B1,,30,no,yes,yes\n");
  deck::EmbeddedHost host;
  const host::Presentation presentation = host.open(second);
  EXPECT_EQ(presentation.Tags().Item("zorp_agendaWizardStyle"), "Vellumark Grey");
  EXPECT_EQ(presentation.Slides().Item(4).Shapes().Count(), 7) << "a title, a subtitle and five bars";
}

TEST_F(Agenda, RewordedItemsAreTheSame) {
  const auto item = [](int level, const char* text) {
    AgendaItem made;
    made.level = level;
    made.text = text;
    return made;
  };
  const std::vector<AgendaItem> before = {item(1, "Welcome"), item(1, "Market review"), item(2, "Europe"),
                                          item(1, "Risks"), item(1, "End")};
  const auto matched = [&](const std::vector<AgendaItem>& after) {
    std::string places;
    for (const auto& match : matchItems(before, after)) places += match ? std::to_string(*match) : "-";
    return places;
  };
  EXPECT_EQ(matched(before), "01234");
  EXPECT_EQ(matched({item(1, "Hello"), item(1, "Market review"), item(1, "Europe"), item(1, "End")}), "0124")
      << "reworded at the beginning, on another level, and one gone";
  EXPECT_EQ(matched({item(1, "Welcome"), item(1, "New"), item(1, "Market review 2026"), item(2, "Europe"),
                     item(1, "Risks"), item(1, "End")}),
            "0-1234")
      << "of several the one that is alike";
  EXPECT_EQ(matched({item(1, "End"), item(1, "Market reviews"), item(1, "Welcome")}), "410")
      << "elsewhere only what is alike";
  EXPECT_EQ(matched({}), "");
}

TEST_F(Agenda, WhatUsersPutOnSlidesStaysWhereItemsAreReworded) {
  const std::string first = folder_.path("first.pptx");
  ASSERT_EQ(agenda({deck_, "--items", folder_.write("a.txt", "A\nB\nC\n"), "-o", first}).status, 0);
  const std::vector<int> before = slideIds(first);
  const Outcome made =
      agenda({first, "--items", folder_.write("b.txt", "A\n  Brand new\nC\n"), "--in-place"});
  EXPECT_EQ(made.status, 0) << made.err;
  EXPECT_NE(made.err.find("\"B\" is now \"Brand new\" and keeps its slide"), std::string::npos) << made.err;
  EXPECT_EQ(slideIds(first), before);

  const std::string bytes = test::readFile(first);
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"--items", folder_.write("c.csv", "text,own slide\nA,no\n")},
        std::vector<std::string>{"--title", "two\nlines"}, std::vector<std::string>{"--subtitle", "\x01"}}) {
    std::vector<std::string> all{first, "--in-place"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    EXPECT_NE(agenda(all).status, 0) << arguments.front();
    EXPECT_EQ(test::readFile(first), bytes) << arguments.front();
  }
  EXPECT_EQ(agenda({first, "--title", "Caf\xE9", "--in-place"}).status, 0);
  deck::EmbeddedHost host;
  EXPECT_EQ(host.open(first).Slides().Item(2).Shapes().Placeholders().Item(1).TextFrame().TextRange().Text(),
            "Café");
}

TEST_F(Agenda, PageNumbersAreCompleteAtOnce) {
  const std::string out = folder_.path("out.pptx");
  ASSERT_EQ(agenda({deck_, "--items", folder_.write("a.txt", "A\nB\n"), "--pages", "--no-numbers", "-o", out})
                .status,
            0);
  deck::EmbeddedHost host;
  const host::Shapes shapes = host.open(out).Slides().Item(2).Shapes();
  std::string texts;
  for (int i = 1; i <= shapes.Count(); ++i) texts += shapes.Item(i).TextFrame().TextRange().Text() + ";";
  EXPECT_NE(texts.find("A\t2;"), std::string::npos) << texts;
  EXPECT_NE(texts.find("B\t3;"), std::string::npos) << texts;
}

TEST_F(Agenda, TheStyleSuitsTheSlidesUnlessOneWasChosen) {
  const std::string list = folder_.write("a.txt", "A\n"), out = folder_.path("out.pptx");
  const auto styleOf = [](const std::string& path) {
    deck::EmbeddedHost host;
    return host.open(path).Tags().Item("zorp_agendaWizardStyle");
  };
  const struct {
    double width, height;
    const char* style;
    bool stays;
  } sizes[] = {{960, 540, "Vellumark Blue Wide", true},
               {720, 540, "Vellumark Blue", true},
               {720, 405, "Vellumark Blue", false}};
  for (const auto& size : sizes) {
    decks::DeckBuilder deck;
    deck.size(size.width, size.height).slide("titleOnly").placeholder("title").text("First");
    deck.save(deck_);
    const Outcome made = agenda({deck_, "--items", list, "-o", out});
    EXPECT_EQ(made.status, 0) << made.err;
    EXPECT_EQ(styleOf(out), size.style);
    EXPECT_EQ(made.err.find("rows don't stay on slides of 720 by 405 points") == std::string::npos,
              size.stays)
        << made.err;
  }
  decks::DeckBuilder chosen;
  chosen.tag("ZORP_STYLE", "Vellumark Grey").slide("titleOnly").placeholder("title").text("First");
  chosen.save(deck_);
  EXPECT_EQ(agenda({deck_, "--items", list, "-o", out}).status, 0);
  EXPECT_EQ(styleOf(out), "Vellumark Grey");
  EXPECT_EQ(agenda({out, "--pages", "--in-place"}).status, 0);
  EXPECT_EQ(styleOf(out), "Vellumark Grey") << "what an agenda has stays";
}

TEST_F(Agenda, FaultsOfListsAreTold) {
  const std::string oneDay = "1440\n";
  std::string long_ = "minutes,text\n";
  for (int i = 0; i < 23; ++i) long_ += "1440,x\n";
  const struct {
    const char* name;
    std::string text;
    const char* told;
  } cases[] = {
      {"a.txt", "", ": holds no items; write one a line"},
      {"a.txt", "  first\n",
       ", line 1: begins on the second level; the first item has to stand on the first"},
      {"a.txt", "one\n    two\n",
       ", line 2: is indented for a third level; an agenda has two, the second behind one tab or two blanks"},
      {"a.txt", "a\tb\n",
       ", line 1: text holds a line break, a tab or another control character; write it on one line"},
      {"a.txt",
       "\xFF\xFE"
       "a",
       ": is no text in UTF-8; save it as UTF-8 text or CSV"},
      {"a.csv", "1,a\n3,b\n", ", line 2: level is \"3\"; write a whole number from 1 to 2"},
      {"a.csv", "1,a,,x\n", ", line 1: minutes is \"x\"; write a whole number from 0 to 1440"},
      {"a.csv", "1,a,,1441\n", ", line 1: minutes is \"1441\"; write a whole number from 0 to 1440"},
      {"a.csv", "1,a,,,maybe\n", ", line 1: break is \"maybe\"; write yes or no"},
      {"a.csv", "1,\n", ", line 1: has no text; write what the item is about"},
      {"a.csv", "1,a\n1,\"b\n", ", line 2: a quotation mark is not closed; close it, or double it"},
      {"a.csv", "1,a,b,5,no,yes,yes,more\n",
       ", line 1: has 8 fields; put a text with a separator in it in double quotes"},
      {"a.csv", "1,a,,,,no,yes\n",
       ", line 1: wants a slide of its own for an item that isn't shown; write no for own slide, or yes for "
       "shown"},
      {"a.csv", "level,when\n",
       ", line 1: there is no column \"when\"; there are level, text, responsible, minutes, break, shown, "
       "own slide"},
      {"a.csv", "level,minutes\n", ", line 1: has no column \"text\"; add it to the header line"},
      {"a.csv", long_, ", line 23: brings the agenda to more than 31327 minutes; shorten the items"},
  };
  for (const auto& c : cases) EXPECT_EQ(faultOf(c.name, c.text), c.told) << c.text;
}

TEST_F(Agenda, RefusalsWriteNothing) {
  const std::string list = folder_.write("a.txt", "A\n");
  const std::string out = folder_.path("out.pptx");
  const struct {
    std::vector<std::string> arguments;
    int status;
    const char* told;
  } cases[] = {
      {{"--items", folder_.path("missing.txt"), "-o", out}, 2, "give a text or CSV file of agenda items"},
      {{"--items", list}, 2, "give -o OUT or --in-place"},
      {{"-o", out}, 1, "holds no agenda; make one with"},
      {{"--export"}, 1, "holds no agenda; make one with"},
      {{"--items", list, "--style", "Green", "-o", out},
       2,
       "there are Vellumark Blue, Vellumark Blue Wide, Vellumark Grey, Vellumark Grey Wide"},
      {{"--items", list, "--start", "25:00", "-o", out}, 2, "--start 25:00: is refused"},
      {{"--items", list, "--times", "--pages", "-o", out}, 2, "excludes"},
      {{"--export", "--items", list}, 2, "excludes"},
  };
  for (const auto& c : cases) {
    std::vector<std::string> arguments = c.arguments;
    arguments.insert(arguments.begin(), deck_);
    const Outcome outcome = agenda(arguments);
    EXPECT_EQ(outcome.status, c.status) << outcome.err;
    const auto lines = test::failureLines(outcome.err);
    ASSERT_EQ(lines.size(), 1U) << outcome.err;
    EXPECT_NE(lines[0].find(c.told), std::string::npos) << lines[0];
    EXPECT_FALSE(std::filesystem::exists(out));
  }
}

}  // namespace
}  // namespace vellumark::app
