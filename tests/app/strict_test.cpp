// The add-in asks nothing of its host but what is documented: what it does behind a strict host is what it
// does without.

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <regex>

#include "app/program.h"
#include "base/error.h"
#include "deck/embedded_host.h"
#include "decks/deck_builder.h"
#include "support/saved_decks.h"
#include "support/strict_host.h"

namespace vellumark::test {

using namespace decks;
namespace {

namespace fs = std::filesystem;

class StrictHost : public testing::Test {
 protected:
  StrictHost() {
    DeckBuilder builder;
    auto slide = builder.slide("titleOnly");
    slide.placeholder("title").text("Title").named("Title");
    slide.shape("rect", 10, 20, 100, 50).rotate(90).named("Turned").text("Größe");
    slide.shape("chevron", 400, 300, 90, 40).rotate(180).named("Back").text("one\rtwo");
    slide.shape("homePlate", 600, 330, 120, 60).named("Master").text("m");
    slide.shape("roundRect", 10, 20, 100, 50).named("Rounded");
    slide.shape("rightArrow", 400, 300, 90, 40).named("Arrow");
    slide.freeform(90, 395, 120, 30, {{0, 0}, {120, 0}, {120, 30}, {0, 30}}).named("Header");
    slide.table(50, 60, 200, 80, {{"a", "b"}, {"c", "d"}}).named("Table");
    slide.group(10, 20, 100, 50).named("Group").children().shape("homePlate", 10, 20, 100, 50);
    builder.slide();
    builder.save(deck_);
  }

  /// What came of a run: its end, what it said, and the parts that it wrote, without the ids that are new
  /// each time.
  std::string outcome(const std::string& program, std::vector<std::string> arguments) {
    static const std::regex id("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}");
    const std::string out = folder_.path("out.pptx");
    fs::remove(out);
    arguments.insert(arguments.end(), {"--root", TEST_SOURCE_DIR "/product", "-o", out});
    const Outcome ran = runProgram(program, arguments);
    std::string text = std::to_string(ran.status) + "\n" + ran.err + ran.out;
    if (fs::exists(out)) {
      for (const auto& [name, entry] : readZipFile(out)) text += name + "\n" + entry.bytes + "\n";
    }
    return std::regex_replace(text, id, "ID");
  }
  /// The exit status, the same with both hosts.
  int same(const std::vector<std::string>& arguments) {
    const std::string plain = outcome(TEST_PROGRAM, arguments);
    const std::string strict = outcome(TEST_STRICT_PROGRAM, arguments);
    std::string line;
    for (const std::string& word : arguments) line += word + " ";
    EXPECT_TRUE(plain == strict) << line << "\n"
                                 << plain.substr(0, 400) << "\nstrict:\n"
                                 << strict.substr(0, 400);
    return std::stoi(plain);
  }

  TempFolder folder_;
  const std::string deck_ = folder_.path("deck.pptx");
};

TEST_F(StrictHost, OnlyWhatIsDocumentedIsTaken) {
  deck::EmbeddedHost host;
  const host::Presentation plain = host.open(deck_);
  const host::ObjectRef application = strict(host.application().object());
  const host::ObjectRef slides = strict(plain.Slides().object());
  const host::ObjectRef shape = strict(plain.Slides().Item(1).Shapes().Item("Rounded").object());
  const host::ObjectRef cell =
      strict(plain.Slides().Item(1).Shapes().Item("Table").Table().Cell(1, 1).object());
  struct Case {
    host::ObjectRef object;
    const char* member;
    host::Invoke kind;
    std::vector<host::Value> arguments;
    int error;
  };
  using host::Invoke;
  const Case cases[] = {
      {application, "Version", Invoke::get, {}, 0},
      {application, "VersionName", Invoke::get, {}, base::errors::noSuchMember},
      {application, "Version", Invoke::put, {"15.0"}, base::errors::noSuchMember},
      {slides, "Count", Invoke::get, {}, 0},
      {slides, "Item", Invoke::get, {1}, 0},
      {slides, "FindBySlideID", Invoke::call, {"256"}, 0},
      {slides, "Item", Invoke::get, {}, base::errors::wrongArgumentCount},
      {slides, "Item", Invoke::put, {1, 2}, base::errors::noSuchMember},
      {slides, "Add", Invoke::call, {1, 11, 2}, base::errors::wrongArgumentCount},
      {slides, "Add", Invoke::call, {1, "title"}, base::errors::typeMismatch},
      {cell, "Select", Invoke::call, {host::msoFalse}, base::errors::wrongArgumentCount},
      {shape, "Left", Invoke::put, {"12.5"}, 0},
      {shape, "Left", Invoke::put, {"wide"}, base::errors::typeMismatch},
      {shape, "Name", Invoke::put, {7}, 0},
      {shape, "Fill", Invoke::put, {7}, base::errors::noSuchMember},
  };
  for (const Case& c : cases) {
    int error = 0;
    try {
      c.object->invoke(host::Member(c.member), c.kind, c.arguments);
    } catch (const base::Error& failure) {
      error = failure.number();
    }
    EXPECT_EQ(error, c.error) << c.object->typeName() << "." << c.member;
  }
  EXPECT_EQ(host::getByName(shape, "Left"), host::Value(12.5F));
  EXPECT_EQ(host::getByName(shape, "Name"), host::Value("7"));
}

TEST_F(StrictHost, EveryCommand) {
  const auto commands = nlohmann::json::parse(runProgram({"commands", "--json"}).out);
  int done = 0;
  for (const auto& command : commands) {
    if (command["numbers"].empty() || command["numbers"][0] < 1032) continue;
    if (command["name"] == "openContainingFolder") continue;
    const std::pair<const char*, const char*> situations[] = {
        {"Turned,Back,Master", "14.0"}, {"Back,Master", "11.0"}, {"Group", "14.0"}, {"Table", "14.0"}};
    for (const auto& [selection, host] : situations) {
      done += same({"run", command["name"], deck_, "--select", selection, "--host", host}) == 0 ? 1 : 0;
    }
    done += same({"run", command["name"], deck_, "--slides", "1-2"}) == 0 ? 1 : 0;
  }
  EXPECT_GE(done, 80) << "most commands take one of them";
}

TEST_F(StrictHost, DialogsEventsElementsAndAgendas) {
  const std::string items = "AgendaWizard: btnAddItem; tbAgendaItem=Figures; tbResponsible=Ann; ";
  const std::vector<std::vector<std::string>> runs = {
      {"run", "switchObjects", deck_, "--select", "Rounded,Master", "--dialog",
       "SwitchObjectsInput: obAnchor(8)=1; cbZOrder=1; btnOK"},
      {"run", "roundedRectanglesNumeric", deck_, "--select", "Rounded", "--dialog",
       "roundedRectanglesInput: tbRadius=7.5; btnOK"},
      {"run", "beautifyBlockArrow", deck_, "--select", "Arrow", "--dialog",
       "BlockArrows: obAngle(3)=1; tbAngle=75; tbRatio=40; btnOK"},
      {"run", "tweakAutoShapeAdjustments", deck_, "--select", "Arrow,Master", "--dialog",
       "AutoShapeAdjustments: tbAdj(0)=0.3; btnOK"},
      {"run", "adjustPentagonHeader", deck_, "--select", "Header,Master", "--host", "11.0"},
      {"run", "createMotionPath", deck_, "--select", "Rounded,Master"},
      {"run", "hideShapes", deck_, "--select", "Rounded", "--answer", "Yes"},
      {"run", "hideShapes", deck_, "--select", "Rounded", "--answer", "No"},
      {"run", "insertCopyright 1", deck_},
      {"run", "showAgendaWizard", deck_, "--dialog",
       items + "cbShowTimeSlots=1; tbStart=13:30; cbShowResponsible=1; cbShowPageNumbers=1; btnOK"},
      {"insert", "Text and tables/Tables/1", deck_, "--style", "Vellumark Grey Wide"},
      {"insert", "Diagrams/Processes/Cycle of four", deck_, "--slide", "2"},
  };
  for (const auto& run : runs) same(run);
  EXPECT_EQ(same({"insert", "Diagrams/Processes/Five steps", deck_}), 0);
}

}  // namespace
}  // namespace vellumark::test
