// The toolbars of hosts before the ribbon, from the command line: how they are told, and how they are worked.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "app/program.h"
#include "decks/deck_builder.h"
#include "support/saved_decks.h"

namespace vellumark::test {

using namespace decks;
namespace {

using Json = nlohmann::json;

class ToolbarsCommand : public testing::Test {
 protected:
  ToolbarsCommand() {
    test::copyInstallation(root_);
    DeckBuilder builder;
    auto slide = builder.size(960, 540).slide("blank");
    slide.shape("rect", 10, 10, 50, 50).named("A").text("Text");
    slide.shape("rect", 100, 200, 50, 50).named("B");
    builder.save(deck_);
  }
  Outcome toolbars(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"toolbars"});
    arguments.insert(arguments.end(), {"--root", root_});
    return runProgram(arguments);
  }
  /// Works a deck on a host with toolbars.
  Outcome work(std::vector<std::string> arguments, const std::string& deck = {}) {
    arguments.insert(arguments.begin() + 2, deck.empty() ? deck_ : deck);
    arguments.insert(arguments.end(), {"--host", "11.0", "--root", root_});
    return runProgram(arguments);
  }
  Json shapes(const std::string& deck) {
    return Json::parse(runProgram({"show", deck, "--json"}).out)["slides"][0]["shapes"];
  }

  TempFolder folder_;
  std::string root_ = (folder_.root() / "root").string();
  std::string deck_ = folder_.path("deck.pptx"), out_ = folder_.path("out.pptx");
};

TEST_F(ToolbarsCommand, TellsTheBarsAsATree) {
  const std::string none = toolbars({}).out;
  EXPECT_EQ(none.find("without picture"), std::string::npos) << none;
  const struct {
    std::vector<std::string> arguments;
    const char* line;
  } cases[] = {
      {{}, "Vellumark for presentations - Shortcuts (floating at 200, 320)\n"},
      {{}, "\n  Align top to master top [alignTops], new group, disabled, help 1103, icon 5\n"},
      {{}, "\n  (host control 408), new group\n"},
      {{}, "\n    Settings [!showSettings], new group, help 1240, face 855\n"},
      {{}, "(box): *[No style selected] | Vellumark Blue | "},
      {{}, "\n    Processes\n      Three steps [processes.pptx,1], picture\n"},
      {{deck_, "--select", "A,B"}, "\n  Align top to master top [alignTops], new group, help 1103, icon 5\n"},
      {{deck_, "--select", "A"}, "\n  Align top to master top [alignTops], new group, disabled, help"},
      {{deck_, "--select", "A"}, "\n  Wrap text in AutoShape [wrapText], pressed, help 1181, icon 30\n"},
      {{deck_, "--style", "vellumark grey"}, " | *Vellumark Grey | "},
      {{deck_}, " | *Vellumark Blue | "},
      {{"--host", "9.0"}, "[alignTops], new group, disabled, help 1103, icon 5 (without picture)\n"},
  };
  for (const auto& c : cases) {
    const Outcome outcome = toolbars(c.arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.out.find(c.line), std::string::npos) << c.line << outcome.out;
  }
  const Outcome refused = toolbars({"--host", "14.0"});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.err,
            "vellumark: --host 14.0: such a host has a ribbon and no toolbars; take 9.0 to 11.0\n");

  const Json bars = Json::parse(toolbars({deck_, "--json"}).out);
  ASSERT_EQ(bars.size(), 3U);
  EXPECT_EQ(bars[1]["name"], "Vellumark for presentations - Slide Wizard");
  EXPECT_EQ(bars[1]["height"], 52);
  EXPECT_EQ(bars[0]["controls"][1], Json({{"kind", "button"},
                                          {"caption", "Align left to master left"},
                                          {"tooltip", "Align left to master left"},
                                          {"parameter", "alignLefts"},
                                          {"visible", true},
                                          {"enabled", false},
                                          {"beginGroup", false},
                                          {"state", 0},
                                          {"helpId", 1100},
                                          {"icon", 2},
                                          {"picture", true},
                                          {"mask", true}}));
}

TEST_F(ToolbarsCommand, ElementsAreInsertedFromTheBar) {
  ASSERT_EQ(work({"insert", "Diagrams/Processes/Five steps", "-o", out_}).status, 0);
  double right = 0;
  for (const Json& shape : shapes(out_)) {
    right = std::max(right, shape["left"].get<double>() + shape["width"].get<double>());
  }
  EXPECT_GT(right, 960 * 0.85) << "in the style that suits the slides";
  EXPECT_LE(right, 960);

  ASSERT_EQ(work({"run", "addMyElements", "--select", "A", "--dialog",
                  "myElementsAdd: elemName=a/b; btnAddElement"})
                .status,
            0);
  const std::string other = folder_.path("other.pptx");
  DeckBuilder builder;
  builder.slide("blank");
  builder.save(other);
  const Outcome inserted = work({"insert", "My Elements/Miscellaneous/a/b", "-o", out_}, other);
  ASSERT_EQ(inserted.status, 0) << inserted.err;
  EXPECT_EQ(shapes(out_)[0]["name"], "A");
  EXPECT_EQ(packageFaults(readZipFile(out_)), std::vector<std::string>());

  for (const auto& [element, told] :
       {std::pair("Diagrams/Processes/Six", "there is no element \"Six\"; there are Three steps, Five steps"),
        {"Diagrams/Cycles/One", "\"vellumark toolbars\" lists them"},
        {"My Elements/Manage My Elements", "\"vellumark toolbars\" lists them"},
        {"Tools/Settings", "\"vellumark toolbars\" lists them"}}) {
    const Outcome refused = work({"insert", element});
    EXPECT_EQ(refused.status, 2) << refused.err;
    EXPECT_NE(refused.err.find(told), std::string::npos) << refused.err;
  }
}

TEST_F(ToolbarsCommand, CommandsAreButtons) {
  const auto slide = [&] { return readZipFile(out_)["ppt/slides/slide1.xml"].bytes; };
  ASSERT_EQ(work({"run", "setLanguage 1031", "--select", "A", "-o", out_}).status, 0);
  EXPECT_NE(slide().find("lang=\"de-DE\""), std::string::npos);
  ASSERT_EQ(work({"run", "insertCopyright 1", "--style", "Vellumark Grey", "-o", out_}).status, 0);
  EXPECT_NE(readZipFile(out_)["ppt/slideMasters/slideMaster1.xml"].bytes.find("Internal use only"),
            std::string::npos);
  for (const auto& [command, told] : {std::pair("insertCopyright", "which notice?"),
                                      {"insertCopyright 7", "there is no notice 7"},
                                      {"setLanguage", "which language?"},
                                      {"setLanguage 1036", "1036 is none of the user's languages"},
                                      {"stackVertically", "no toolbar has a button for it"}}) {
    const Outcome refused = work({"run", command, "--select", "A,B"});
    EXPECT_EQ(refused.status, 1) << refused.err;
    EXPECT_NE(refused.err.find(told), std::string::npos) << refused.err;
  }
}

}  // namespace
}  // namespace vellumark::test
