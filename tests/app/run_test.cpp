// `run` and `demo` through files: what the commands do to a deck, and what they leave alone.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "app/program.h"
#include "decks/deck_builder.h"
#include "support/saved_decks.h"

namespace vellumark::test {

using namespace decks;
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

class Run : public testing::Test {
 protected:
  Run() {
    DeckBuilder builder;
    auto slide = builder.slide();
    slide.shape("rect", 10, 20, 100, 50).rotate(90).named("Turned").withId(11);        // @1
    slide.shape("rect", 200, 100, 120, 200).named("Master").withId(12);                // @2
    slide.shape("rect", 400, 300, 90, 40).named("Plain, 1").withId(13).text("Hello");  // @3
    slide.shape("rect", 700, 30, 60, 60).rotate(30).named("Askew").withId(14);         // @4
    builder.slide().shape("rect", 0, 0, 50, 50).named("Elsewhere");
    builder.save(deck_);
  }

  /// Runs a command into out_ and gives the XML of slide 1 as saved.
  std::string slideAfter(const std::string& command, std::vector<std::string> arguments, int status = 0) {
    arguments.insert(arguments.end(), {"-o", out_});
    const Outcome outcome = runCommand(command, deck_, arguments);
    EXPECT_EQ(outcome.status, status) << command << "\n" << outcome.err;
    return fs::exists(out_) ? readZipFile(out_)["ppt/slides/slide1.xml"].bytes : "";
  }
  /// The a:off or a:ext of a shape as it stands in the file: "x,y" or "cx,cy".
  static std::string placed(const std::string& slide, const std::string& name, const std::string& element) {
    const std::size_t shape = slide.find("name=\"" + name + "\"");
    const std::size_t begin = slide.find("<" + element, shape);
    if (shape == std::string::npos || begin == std::string::npos) return "nowhere";
    std::string numbers;
    for (std::size_t at = begin; slide[at] != '>'; ++at) {
      if (slide[at] == '"') {
        const std::size_t end = slide.find('"', at + 1);
        numbers += (numbers.empty() ? "" : ",") + slide.substr(at + 1, end - at - 1);
        at = end;
      }
    }
    return numbers;
  }

  TempFolder folder_;
  std::string deck_ = folder_.path("deck.pptx");
  std::string out_ = folder_.path("out.pptx");
};

TEST_F(Run, WorkedFiguresComeOutOfTheFile) {
  const struct {
    std::string command, select, shape, off, ext;  // EMU, 12700 to the point
  } cases[] = {
      // The visual left of the turned frame goes to 200, so its own left to 175.
      {"alignLefts", "Turned,Master", "Turned", "2222500,254000", "1270000,635000"},
      {"ALIGNLEFTS", "#11,#12", "Turned", "2222500,254000", "1270000,635000"},
      {"1032", "@1,@2", "Turned", "2222500,254000", "1270000,635000"},
      {"zp_1032", " Turned, Master", "Turned", "2222500,254000", "1270000,635000"},
      // The last one is the master: now the plain shape moves to the visual left of the turned one, 35.
      {"alignLefts", "@2,@1", "Master", "444500,1270000", "1524000,2540000"},
      // 100 + 200 x 0.38196601125 - 40 / 2 = 156.393202
      {"alignVerticallyInGoldenSection", "Plain\\, 1,Master", "Plain, 1", "5080000,1986194",
       "1143000,508000"},
      // A visual width of 120 at 90 degrees: left 10 + 120 - 50, and the frame's height takes it.
      {"alignWidths", "Turned,Master", "Turned", "1016000,254000", "1270000,1524000"},
      {"stretchLeft", "Plain\\, 1,Master", "Plain, 1", "2540000,3810000", "3683000,508000"},
      {"moveLeftToMasterRight", "Plain\\, 1,Master", "Plain, 1", "4064000,3810000", "1143000,508000"},
      {"alignWidthsAndHeights", "Plain\\, 1,Master", "Plain, 1", "5080000,3810000", "1524000,2540000"},
  };
  for (const std::string host : {"14.0", "11.0", "15.0"}) {
    for (const auto& c : cases) {
      fs::remove(out_);
      const std::string slide = slideAfter(c.command, {"--select", c.select, "--host", host});
      EXPECT_EQ(placed(slide, c.shape, "a:off"), c.off) << c.command << " " << c.select << " on " << host;
      EXPECT_EQ(placed(slide, c.shape, "a:ext"), c.ext) << c.command << " " << c.select << " on " << host;
    }
  }
}

TEST_F(Run, OnlyTheChangedPartIsWrittenAnew) {
  slideAfter("alignTops", {"--select", "@3,@2"});
  EXPECT_EQ(changedEntries(readZipFile(deck_), readZipFile(out_)),
            std::vector<std::string>{"ppt/slides/slide1.xml"});
  EXPECT_TRUE(packageFaults(readZipFile(out_)).empty());
}

TEST_F(Run, NothingIsWrittenUnasked) {
  const std::string before = readFile(deck_);
  const Outcome unasked = runCommand("alignTops", deck_, {"--select", "@3,@2"});
  EXPECT_EQ(unasked.status, 0) << unasked.err;
  EXPECT_NE((unasked.out + unasked.err).find("nothing written: give -o OUT or --in-place"),
            std::string::npos);
  EXPECT_EQ(readFile(deck_), before);
  EXPECT_NE(runCommand("countWords", deck_, {"--select", "@3"}).out.find("the deck is as it was"),
            std::string::npos);

  // The deck itself under another name is still the deck itself.
  const std::string link = folder_.path("link.pptx");
  fs::create_symlink(deck_, link);
  for (const std::string& out : {deck_, folder_.root().string() + "/./deck.pptx", link}) {
    const Outcome refused = runCommand("alignTops", deck_, {"--select", "@3,@2", "-o", out});
    EXPECT_EQ(refused.status, 2) << out;
    EXPECT_NE(refused.err.find("--in-place"), std::string::npos) << refused.err;
    EXPECT_EQ(readFile(deck_), before);
  }

  const Outcome unwritable =
      runCommand("alignTops", deck_, {"--select", "@3,@2", "-o", folder_.root() / "no/out.pptx"});
  EXPECT_EQ(unwritable.status, 3);
  EXPECT_EQ(failureLines(unwritable.err).size(), 1u) << unwritable.err;

  const Outcome inPlace = runCommand("alignTops", deck_, {"--select", "@3,@2", "--in-place"});
  EXPECT_EQ(inPlace.status, 0) << inPlace.err;
  EXPECT_EQ(placed(readZipFile(deck_)["ppt/slides/slide1.xml"].bytes, "Plain, 1", "a:off"),
            "5080000,1270000");
  for (const auto& entry : fs::directory_iterator(folder_.root())) {
    const std::string name = entry.path().filename();
    EXPECT_TRUE(name == "deck.pptx" || name == "link.pptx") << name << " was left behind";
  }
}

TEST_F(Run, RefusedCommandsSayWhatTheyNeed) {
  const struct {
    std::string command;
    std::vector<std::string> arguments;
    std::string told;
  } cases[] = {
      {"alignLefts", {"--select", "Master"}, "at least 2 shapes"},
      {"alignLefts", {}, "at least 2 shapes"},
      {"alignLefts", {"--view", "sorter", "--slides", "1,2"}, "at least 2 shapes"},
      {"alignLefts", {"--select", "Master", "--host", "11.0"}, "disabled"},
      {"stretchTop", {"--select", "Askew,Master", "--host", "11.0"}, "disabled"},
      {"showSettings", {}, "no script answers it"},
      {"reference", {}, "--host 11.0"},
      {"wrapText", {}, "only shapes that take text"},
  };
  for (const auto& c : cases) {
    auto arguments = c.arguments;
    arguments.insert(arguments.end(), {"-o", out_});
    const Outcome outcome = runCommand(c.command, deck_, arguments);
    EXPECT_EQ(outcome.status, 1) << c.command << "\n" << outcome.err;
    const auto lines = failureLines(outcome.err);
    ASSERT_EQ(lines.size(), 1u) << outcome.err;
    EXPECT_NE(lines[0].find(c.told), std::string::npos) << lines[0];
    EXPECT_FALSE(fs::exists(out_)) << c.command;
  }
}

TEST_F(Run, ColorsOfTheScreenGoIntoTheDeck) {
  const auto pick = [&](const std::string& click) {
    return runCommand("1104", deck_, {"--dialog", "pickColor: " + click + "; btnAdd; btnClose", "-o", out_});
  };
  const Outcome picked = pick("color=#1B6878");
  EXPECT_EQ(picked.status, 0) << picked.err;
  EXPECT_NE(readZipFile(out_)["ppt/presProps.xml"].bytes.find("<p:clrMru><a:srgbClr val=\"1B6878\"/>"),
            std::string::npos);
  fs::remove(out_);
  for (const auto& [click, told] :
       {std::pair{"color=teal", "write it as #1B6878"}, std::pair{"pixel=somewhere", "write it as 120,40"}}) {
    const Outcome outcome = pick(click);
    EXPECT_EQ(outcome.status, 1) << click;
    ASSERT_EQ(failureLines(outcome.err).size(), 1u) << outcome.err;
    EXPECT_NE(failureLines(outcome.err)[0].find(told), std::string::npos) << outcome.err;
    EXPECT_FALSE(fs::exists(out_));
  }
}

TEST_F(Run, CriticalBoxesAreToldAndCountAsFailure) {
  // The width of a shape at 30 degrees can't be set. The position step behind it still runs, but what is half
  // done is not written.
  const Outcome outcome = runCommand("stretchLeft", deck_, {"--select", "Askew,Master", "-o", out_});
  EXPECT_EQ(outcome.status, 1) << outcome.err;
  for (const std::string part :
       {"critical", "Vellumark for presentations",
        "Shape width can only be set if shape is rotated by a multiple of 90 degrees."}) {
    EXPECT_NE(outcome.err.find(part), std::string::npos) << outcome.err;
  }
  EXPECT_FALSE(fs::exists(out_));
}

TEST_F(Run, ErrorReportsEndTheCommand) {
  const auto count = [&](const std::string& host, std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--select", "@3,@2", "--host", host, "-o", out_});
    return runCommand("alignTops", deck_, arguments);
  };
  // A usage counter at its limit fails on the way to the command: at the ribbon's callback, which the host
  // answers for, and within the toolbar's trap, which shows an error report.
  setCounter("statsTrimlineTools", "2147483647");
  const Outcome ribbon = count("14.0", {});
  const Outcome unanswered = count("11.0", {});
  const Outcome answered = count("11.0", {"--dialog", "ErrForm: tbName=Me; btnCancel"});
  const Outcome stuck = count("11.0", {"--dialog", "ErrForm: tbName=Me"});
  setCounter("statsTrimlineTools", "0");
  for (const Outcome& outcome : {ribbon, unanswered, answered, stuck}) {
    EXPECT_EQ(outcome.status, 1) << outcome.err;
    ASSERT_EQ(failureLines(outcome.err).size(), 1u) << outcome.err;
    EXPECT_NE(failureLines(outcome.err)[0].find("Overflow"), std::string::npos) << outcome.err;
    EXPECT_FALSE(fs::exists(out_));
  }
  EXPECT_NE(unanswered.err.find("not answered"), std::string::npos) << unanswered.err;
  EXPECT_NE(answered.err.find("answered: ErrForm: tbName=Me; btnCancel"), std::string::npos) << answered.err;
  EXPECT_EQ(count("11.0", {}).status, 0);
}

TEST_F(Run, TogglesChangeTheirStateBothWays) {
  const std::string on = slideAfter("1085", {"--select", "@3"});
  EXPECT_NE(on.find("a:spAutoFit"), std::string::npos);
  deck_ = out_;
  out_ = folder_.path("again.pptx");
  EXPECT_EQ(slideAfter("zp_1085", {"--text", "Plain, 1:2,3"}).find("a:spAutoFit"), std::string::npos);
}

TEST_F(Run, JsonTellsTheShapesAfterwards) {
  const Outcome outcome = runCommand("alignLefts", deck_, {"--select", "Turned,Master", "--json"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  const Json shapes = Json::parse(outcome.out);
  ASSERT_EQ(shapes.size(), 4u);
  EXPECT_EQ(shapes[0]["left"], 175);
  EXPECT_EQ(shapes[1]["left"], 200);
}

TEST_F(Run, FilesAreAskedFor) {
  const std::string chosen = folder_.path("chosen.pptx");
  const std::vector<std::string> slides{"--slides", "2", "-o", out_};
  const auto save = [&](std::vector<std::string> more) {
    more.insert(more.end(), slides.begin(), slides.end());
    return runCommand("saveSelectedSlides", deck_, more);
  };
  const Outcome unanswered = save({});
  EXPECT_EQ(unanswered.status, 1);
  ASSERT_EQ(failureLines(unanswered.err).size(), 1u) << unanswered.err;
  EXPECT_NE(failureLines(unanswered.err)[0].find("--answer FILE"), std::string::npos) << unanswered.err;
  EXPECT_FALSE(fs::exists(out_));
  EXPECT_EQ(save({"--answer", "Cancel"}).status, 0);
  EXPECT_EQ(readZipFile(out_).count("ppt/slides/slide1.xml"), 1u);
  const Outcome saved = save({"--answer", folder_.path("chosen")});
  EXPECT_EQ(saved.status, 0) << saved.err;
  EXPECT_EQ(readZipFile(chosen).count("ppt/slides/slide1.xml"), 0u);
  EXPECT_EQ(readZipFile(chosen).count("ppt/slides/slide2.xml"), 1u);
  EXPECT_EQ(save({"--host", "11.0", "--answer", folder_.path("old.pptx")}).status, 0) << "no toolbar minds";
  // What is written is the deck, not what the command opened beside it.
  EXPECT_EQ(readZipFile(out_).count("ppt/slides/slide1.xml"), 1u);
}

TEST_F(Run, TheClipboardIsFilledBeforeTheCommand) {
  const Outcome pasted =
      runCommand("pasteOnSelectedSlides", deck_, {"--copy", "Master,Turned", "--slides", "2", "-o", out_});
  ASSERT_EQ(pasted.status, 0) << pasted.err;
  const std::string slide = readZipFile(out_)["ppt/slides/slide2.xml"].bytes;
  EXPECT_EQ(placed(slide, "Turned", "a:off"), "127000,254000");
  EXPECT_LT(slide.find("Turned"), slide.find("Master"));  // as they lie, not as they are named
  const Outcome empty = runCommand("pasteOnSelectedSlides", deck_, {"--slides", "2"});
  EXPECT_EQ(empty.status, 1);
  EXPECT_EQ(failureLines(empty.err).size(), 1u) << empty.err;
}

TEST_F(Run, NoticesComeFromTheStyleThatIsChosen) {
  const auto notices = [&](const std::string& deck, const char* number, std::vector<std::string> more) {
    more.insert(more.end(), {"-o", out_});
    const Outcome outcome = runCommand(std::string("insertCopyright ") + number, deck, more);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return readZipFile(out_)["ppt/slideMasters/slideMaster1.xml"].bytes;
  };
  const std::string first = notices(deck_, "1", {});
  EXPECT_NE(first.find("Internal use only"), std::string::npos);
  EXPECT_NE(first.find("44546A"), std::string::npos) << "of the first style";
  const std::string once = folder_.path("once.pptx");
  fs::rename(out_, once);
  const std::string second = notices(once, "2", {"--style", "vellumark grey"});
  EXPECT_EQ(second.find("Internal use only"), std::string::npos);
  EXPECT_NE(second.find("Confidential"), std::string::npos);
  EXPECT_EQ(second.find("44546A"), std::string::npos);
  EXPECT_EQ(runCommand("insertCopyright 1", deck_, {"--style", "Green"}).status, 2);
}

TEST_F(Run, ElementsAreKeptFromRunToRun) {
  const fs::path root = folder_.root() / "root", library = root / "user/myelements";
  test::copyInstallation(root);
  const auto run = [&](const char* command, const char* select, const char* answer, const char* dialog) {
    const Outcome outcome = runProgram(
        {"run", command, deck_, "--root", root, "--select", select, "--answer", answer, "--dialog", dialog});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
  };
  run("addMyElements", "Turned,Master", "OK", "myElementsAdd: elemName=Pair; btnAddElement");
  run("1028", "Askew", "Odd ones", "myElementsAdd: btnAddGroup; elemName=Askew; btnAddElement");
  run("manageMyElements", "Master", "Yes",
      "myElementsManager: elementsTree=Pair; btnDelete; elementsTree=Askew; elementsTree!label=Tilted; "
      "btnOK");
  const std::string store = library / "myelements.pptx";
  EXPECT_EQ(packageFaults(readZipFile(store)), std::vector<std::string>());
  const Json slides = Json::parse(runProgram({"show", store, "--json"}).out)["slides"];
  ASSERT_EQ(slides.size(), 1U);
  EXPECT_EQ(slides[0]["id"], 257);
  EXPECT_EQ(slides[0]["shapes"][0]["name"], "Askew");
  const std::string index = readFile(library / "myelements.xml");
  EXPECT_NE(index.find("<element name=\"Tilted\" slideID=\"257\"/>"), std::string::npos) << index;
}

TEST_F(Run, DemoStraightensASlide) {
  DeckBuilder builder;
  builder.slide("title");
  auto slide = builder.slide();
  slide.shape("rect", 50, 100, 200, 80).named("One");
  slide.shape("rect", 280, 112, 180, 80).named("Two");
  slide.shape("rect", 500, 95, 190, 80).named("Three");
  builder.save(deck_);
  const Outcome outcome = runProgram({"demo", deck_, "-o", out_, "--root", TEST_SOURCE_DIR "/product"});
  ASSERT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_NE(outcome.out.find("Two"), std::string::npos) << outcome.out;
  const std::string saved = readZipFile(out_)["ppt/slides/slide2.xml"].bytes;
  EXPECT_EQ(placed(saved, "Two", "a:off"), "3175000,1270000");    // at the right edge of One, 250
  EXPECT_EQ(placed(saved, "Three", "a:off"), "5715000,1270000");  // at that of Two, 450
  EXPECT_EQ(placed(saved, "Three", "a:ext"), "2540000,1016000");

  DeckBuilder single;
  single.slide().shape("rect", 0, 0, 50, 50);
  single.save(deck_);
  fs::remove(out_);
  const Outcome refused = runProgram({"demo", deck_, "-o", out_, "--root", TEST_SOURCE_DIR "/product"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(failureLines(refused.err).size(), 1u) << refused.err;
  EXPECT_FALSE(fs::exists(out_));
}

}  // namespace
}  // namespace vellumark::test
