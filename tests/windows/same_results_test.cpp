// The same command on the same deck, by the program on this system and through the registered DLL over COM:
// the same parts with the same XML must come out, and the same exit status.

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <regex>

#include "decks/deck_builder.h"
#include "support/saved_decks.h"
#include "windows/installed_add_in.h"

namespace vellumark::test {

using namespace decks;
namespace {

namespace fs = std::filesystem;

class SameResults : public testing::Test {
 protected:
  struct Both {
    Outcome here, overCom;
    bool written = false;
  };

  /// A part without the ids that are new each time.
  static std::string withoutNewIds(const std::string& bytes) {
    static const std::regex id("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}");
    return std::regex_replace(bytes, id, "ID");
  }

  /// Runs a command both ways and compares what came out. What only one of the two says is told.
  Both compare(const std::string& command, const std::string& deck, std::vector<std::string> arguments,
               const std::string& subcommand = "run") {
    const std::string linux = folder_.path("linux.pptx"), windows = folder_.path("windows.pptx");
    fs::remove(linux);
    fs::remove(windows);
    const auto withOut = [&](const std::string& out) {
      std::vector<std::string> all = arguments;
      all.insert(all.end(), {"-o", out});
      return all;
    };
    Both both{runCommand(command, deck, withOut(linux), subcommand),
              runOverCom(command, deck, withOut(windows), subcommand)};
    EXPECT_EQ(both.here.status, both.overCom.status)
        << command << " " << deck << "\nhere: " << both.here.err << "\nover COM: " << both.overCom.err;
    both.written = fs::exists(linux);
    EXPECT_EQ(both.written, fs::exists(windows)) << command << " " << deck;
    if (both.written && fs::exists(windows)) {
      const ZipEntries expected = readZipFile(linux), actual = readZipFile(windows);
      std::vector<std::string> names, differing;
      for (const auto& [name, entry] : expected) {
        names.push_back(name);
        const auto found = actual.find(name);
        const bool same =
            found != actual.end() && (found->second.bytes == entry.bytes ||
                                      withoutNewIds(found->second.bytes) == withoutNewIds(entry.bytes));
        if (!same) differing.push_back(name);
      }
      EXPECT_EQ(differing, std::vector<std::string>()) << command << " " << deck;
      EXPECT_EQ(names.size(), actual.size()) << command << " " << deck;
    }
    return both;
  }

  TempFolder folder_;
};

TEST_F(SameResults, EveryCommandOnShapesOfAllKinds) {
  DeckBuilder builder;
  auto slide = builder.slide();
  slide.shape("rect", 10, 20, 100, 50).rotate(90).named("Turned").text("Größe");
  slide.shape("ellipse", 200, 100, 120, 200).named("Round");
  slide.shape("chevron", 400, 300, 90, 40).rotate(180).named("Back");
  slide.shape("homePlate", 600, 330, 120, 60).named("Master");
  const std::string deck = folder_.path("deck.pptx");
  builder.save(deck);

  const auto commands = nlohmann::json::parse(runProgram({"commands", "--json"}).out);
  int runs = 0, written = 0;
  for (const auto& command : commands) {
    // Those of the ribbon's first groups open pages and dialogs and leave the deck alone, and so does the one
    // that opens a folder.
    if (command["numbers"].empty() || command["numbers"][0] < 1032) continue;
    if (command["name"] == "openContainingFolder") continue;
    ++runs;
    written += compare(command["name"], deck, {"--select", "Turned,Round,Back,Master"}).written ? 1 : 0;
  }
  EXPECT_GE(runs, 35);
  EXPECT_GE(written, 20) << "most commands take such a selection";
}

/// The dialogs are worked by a script here and by messages to their windows there.
TEST_F(SameResults, CommandsWithDialogsAndForms) {
  DeckBuilder builder;
  auto slide = builder.slide();
  slide.shape("roundRect", 10, 20, 100, 50).named("Rounded");
  slide.shape("roundRect", 200, 100, 120, 200).named("Tall");
  slide.shape("rightArrow", 400, 300, 90, 40).named("Arrow");
  slide.shape("homePlate", 100, 400, 200, 100).named("Pentagon");
  slide.shape("chevron", 320, 410, 100, 60).named("Chevron");
  slide.freeform(90, 395, 120, 30, {{0, 0}, {120, 0}, {120, 30}, {0, 30}}).named("Header");
  const std::string deck = folder_.path("deck.pptx");
  builder.save(deck);

  struct Case {
    const char* command;
    const char* selection;
    const char* dialog;
  };
  const Case cases[] = {
      {"switchObjects", "Rounded,Tall", "SwitchObjectsInput: obAnchor(8)=1; cbZOrder=1; btnOK"},
      {"switchObjects", "Rounded,Tall", "SwitchObjectsInput: obAnchor(0)=1; btnCancel"},
      {"roundedRectanglesNumeric", "Rounded,Tall", "roundedRectanglesInput: tbRadius=7.5; btnOK"},
      {"beautifyBlockArrow", "Arrow", "BlockArrows: obAngle(3)=1; tbAngle=75; tbRatio=40; btnOK"},
      {"tweakAutoShapeAdjustments", "Arrow,Pentagon", "AutoShapeAdjustments: tbAdj(0)=0.3; btnOK"},
      {"roundedRectangles", "Rounded,Tall", nullptr},
      {"alignAngles", "Pentagon,Chevron", nullptr},
      {"processChain", "Chevron,Pentagon", nullptr},
      {"adjustPentagonHeader", "Header,Pentagon", nullptr},
      {"stackVertically", "Chevron,Pentagon,Rounded", nullptr},
  };
  for (const Case& c : cases) {
    for (const char* host : {"14.0", "11.0"}) {
      std::vector<std::string> arguments{"--select", c.selection, "--host", host};
      if (c.dialog) arguments.insert(arguments.end(), {"--dialog", c.dialog});
      const Both both = compare(c.command, deck, arguments);
      EXPECT_TRUE(both.written || both.here.status == 1) << c.command << ": " << both.here.err;
    }
  }
}

TEST_F(SameResults, ElementsOfTheGalleries) {
  DeckBuilder builder;
  builder.slide().shape("rect", 10, 20, 100, 50).named("Box");
  const std::string deck = folder_.path("deck.pptx");
  builder.save(deck);
  for (const char* element : {"Text and tables/Tables/1", "Diagrams/Processes/Cycle of four"}) {
    EXPECT_TRUE(compare(element, deck, {"--style", "Vellumark Grey Wide"}, "insert").written);
    EXPECT_TRUE(
        compare(element, deck, {"--style", "Vellumark Grey Wide", "--host", "11.0"}, "insert").written);
  }
  EXPECT_EQ(compare("Diagrams/Processes/Ring", deck, {}, "insert").here.status, 2);
}

TEST_F(SameResults, Agendas) {
  DeckBuilder builder;
  builder.slide().shape("rect", 10, 20, 100, 50).named("Box");
  const std::string deck = folder_.path("deck.pptx");
  builder.save(deck);
  const std::string items = "AgendaWizard: btnAddItem; tbAgendaItem=Figures; tbResponsible=Ann; ";
  const Both both =
      compare("showAgendaWizard", deck, {"--dialog", items + "cbShowTimeSlots=1; tbStart=13:30; btnOK"});
  EXPECT_EQ(both.here.status, 0) << both.here.err;
  EXPECT_TRUE(both.written);

  // A column behind the text stands where the widths of all texts put it, which each system measures by
  // itself.
  const auto tabs = [&](const std::string& out) {
    std::vector<double> found;
    const std::string slide = readZipFile(out)["ppt/slides/slide2.xml"].bytes;
    const std::regex tab("<a:tab pos=\"([0-9]+)\"");
    for (std::sregex_iterator at(slide.begin(), slide.end(), tab), end; at != end; ++at) {
      found.push_back(std::stod((*at)[1]));
    }
    return found;
  };
  const std::vector<std::string> arguments{"--dialog", items + "cbShowResponsible=1; btnOK"};
  const auto into = [&](const std::string& out) {
    std::vector<std::string> all = arguments;
    all.insert(all.end(), {"-o", out});
    return all;
  };
  const std::string here = folder_.path("here.pptx"), there = folder_.path("there.pptx");
  ASSERT_EQ(runCommand("showAgendaWizard", deck, into(here)).status, 0);
  ASSERT_EQ(runOverCom("showAgendaWizard", deck, into(there)).status, 0);
  const std::vector<double> expected = tabs(here), actual = tabs(there);
  ASSERT_FALSE(expected.empty());
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(actual[i] / expected[i], 1, 0.02);
}

TEST_F(SameResults, RealDecksAndHostsOfAllAges) {
  if (!fs::exists(TEST_SHARED_DECKS)) GTEST_SKIP() << "there are no decks from elsewhere";
  const char* const hosts[] = {"14.0", "11.0", "12.0", "16.0"};
  const char* const commands[] = {"alignLefts", "stretchTop", "alignWidths", "moveLeftToMasterRight"};
  int runs = 0;
  for (const auto& entry : fs::directory_iterator(TEST_SHARED_DECKS)) {
    if (entry.path().extension() != ".pptx") continue;
    const std::string deck = entry.path().string();
    // The first slide that has two shapes; without one, the same refusal.
    std::string number = "1";
    const Outcome shown = runProgram({"show", deck, "--json"});
    if (shown.status == 0) {
      for (const auto& slide : nlohmann::json::parse(shown.out)["slides"]) {
        if (slide["shapes"].size() < 2) continue;
        number = std::to_string(slide["index"].get<int>());
        break;
      }
    }
    compare(commands[runs % 4], deck,
            {"--slide", number, "--select", "@2,@1", "--host", hosts[runs / 4 % 4]});
    ++runs;
  }
  EXPECT_GE(runs, 20);
}

TEST_F(SameResults, RefusalsAndErrorReportsEndTheSameWay) {
  DeckBuilder builder;
  auto slide = builder.slide();
  slide.shape("rect", 10, 20, 100, 50).rotate(30).named("Askew");
  slide.shape("rect", 200, 100, 120, 200).named("Master");
  const std::string deck = folder_.path("deck.pptx");
  builder.save(deck);

  EXPECT_EQ(compare("alignLefts", deck, {}).here.status, 1) << "nothing is selected";
  EXPECT_EQ(compare("alignWidths", deck, {"--select", "Askew,Master"}).here.status, 1) << "it stands askew";
  EXPECT_EQ(compare("alignLefts", deck, {"--select", "Askew,Nobody"}).here.status, 2);
  EXPECT_EQ(compare("noSuchCommand", deck, {}).here.status, 2);
  EXPECT_EQ(compare("alignLefts", folder_.path("missing.pptx"), {}).here.status, 3);
  EXPECT_EQ(compare("1085", deck, {"--select", "Askew"}).here.status, 0);
}

}  // namespace
}  // namespace vellumark::test
