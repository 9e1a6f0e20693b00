// The walk to all text frames, and what is done with them.

#include <gtest/gtest.h>

#include "tools/margin_input.h"
#include "tools/stage.h"

namespace vellumark::tools {
namespace {

using test::Texts;

const std::string product = "Vellumark for presentations ";

class TextTools : public test::Stage {
 protected:
  Texts told() {
    Texts texts = messages.take();
    std::erase_if(texts, [](const std::string& text) { return text.find("[none]") != std::string::npos; });
    return texts;
  }
  host::TextFrame frame(const std::string& name) { return shape(name).TextFrame(); }
  int level(const std::string& name, int paragraph) {
    return frame(name).TextRange().Paragraphs(paragraph).IndentLevel();
  }
  /// First and left margin of levels 1 to `count`.
  std::vector<float> ruler(const host::TextFrame& frame, int count) {
    std::vector<float> margins;
    for (int i = 1; i <= count; ++i) {
      margins.push_back(frame.Ruler().Levels().Item(i).FirstMargin());
      margins.push_back(frame.Ruler().Levels().Item(i).LeftMargin());
    }
    return margins;
  }
  host::TextFrame cell(int row, int column) {
    return shape("T").Table().Cell(row, column).Shape().TextFrame();
  }
};

TEST_F(TextTools, EachLevelStandsOneFontSizeFurtherRight) {
  auto slide = deck.slide();
  slide.textBox(0, 0, 400, 100, "one\ntwo", {.size = 20}).named("A");
  struct Case {
    const char* version;
    std::vector<float> levels;
  };
  const Case cases[] = {
      {"11.0", {0, 0, 0, 20, 20, 40, 40, 60, 60, 80}},
      {"14.0", {0, 0, 0, 20, 20, 40, 40, 60, 60, 80, 80, 100, 100, 120, 120, 140, 140, 160}}};
  for (const Case& c : cases) {
    open(c.version);
    select({"A"});
    tools.beautifyIndents();
    EXPECT_EQ(ruler(frame("A"), static_cast<int>(c.levels.size() / 2)), c.levels) << c.version;
  }
  open("15.0");  // only the first level is set
  frame("A").Ruler().Levels().Item(1).LeftMargin(9);
  frame("A").Ruler().Levels().Item(2).LeftMargin(9);
  select({"A"});
  tools.beautifyIndents();
  EXPECT_EQ(ruler(frame("A"), 2), (std::vector<float>{0, 0, 0, 9}));
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(TextTools, LevelsChangeWithinTheirLimits) {
  auto slide = deck.slide();
  slide.textBox(0, 0, 400, 100, "one", {.size = 20, .level = 1}).text("deep", {.level = 4}).named("A");
  struct Case {
    const char* version;
    int steps;
    bool up;
    int first, second;
    bool tidied;
  };
  const Case cases[] = {{"11.0", 1, true, 3, 5, false},  {"11.0", 9, true, 5, 5, false},
                        {"14.0", 1, true, 3, 6, true},   {"14.0", 9, true, 9, 9, true},
                        {"11.0", 9, false, 1, 1, false}, {"14.0", 2, false, 1, 3, true},
                        {"16.0", 3, true, 2, 5, false}};
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.version) + (c.up ? " up " : " down ") + std::to_string(c.steps));
    open(c.version);
    select({"A"});
    for (int i = 0; i < c.steps; ++i) c.up ? tools.addIndent() : tools.removeIndent();
    EXPECT_EQ(level("A", 1), c.first);
    EXPECT_EQ(level("A", 2), c.second);
    EXPECT_EQ(frame("A").Ruler().Levels().Item(3).LeftMargin() == 40, c.tidied);
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(TextTools, ATextSelectionChangesItsParagraphsOnly) {
  deck.slide().textBox(0, 0, 400, 100, "one\ntwo\nthree").named("A");
  for (const char* version : {"11.0", "14.0"}) {
    open(version);
    frame("A").TextRange().Characters(6, 2).Select();
    tools.addIndent();
    EXPECT_EQ(level("A", 1), 1) << version;
    EXPECT_EQ(level("A", 2), 2) << version;
    EXPECT_EQ(level("A", 3), 1) << version;
    frame("A").TextRange().Characters(1, 0).Select();  // an insertion point in the first paragraph
    tools.addIndent();
    EXPECT_EQ(level("A", 1), 2) << version;
    EXPECT_EQ(level("A", 3), 1) << version;
  }
}

TEST_F(TextTools, TheWalkGoesThroughSlidesGroupsAndTables) {
  auto slide = deck.slide();
  slide.table(0, 0, 200, 100, {{"a", "b"}, {"c", "d"}}).named("T");
  auto group = slide.group(0, 0, 100, 100).named("G").children();
  group.textBox(0, 0, 100, 50, "inner").named("inner");
  slide.picture(0, 0, 10, 10).named("P");
  deck.slide().textBox(0, 0, 100, 50, "second").named("second");
  open();
  select({"T"});
  const auto levels = [&] {
    std::string all;
    for (int row : {1, 2}) {
      for (int column : {1, 2}) all += std::to_string(cell(row, column).TextRange().IndentLevel());
    }
    return all;
  };
  tools.addIndent();
  EXPECT_EQ(levels(), "2222");
  const host::Cell cells[] = {shape("T").Table().Cell(1, 2), shape("T").Table().Cell(2, 1)};
  host->selectCells(cells);
  tools.addIndent();
  EXPECT_EQ(levels(), "2332");

  host->selectSlides(std::vector<std::int32_t>{1, 2});
  tools.addIndent();
  EXPECT_EQ(levels(), "3443");
  EXPECT_EQ(shape("G").GroupItems().Item(1).TextFrame().TextRange().IndentLevel(), 2);
  EXPECT_EQ(presentation.Slides().Item(2).Shapes().Item(1).TextFrame().TextRange().IndentLevel(), 2);
  EXPECT_EQ(failures.take(), Texts{});

  host->selectShapes({});
  tools.addIndent();
  EXPECT_EQ(levels(), "3443");
  EXPECT_EQ(told(), Texts{product + "[information] Please select one or more slides or shapes first."});
}

TEST_F(TextTools, LanguagesGoToWhatIsSelected) {
  auto slide = deck.slide();
  slide.textBox(0, 0, 400, 100, "one two").named("A");
  slide.textBox(0, 0, 400, 100, "three").named("B");
  slide.shape("rect", 0, 0, 10, 10).named("Empty");
  open();
  const auto language = [&](const char* name) { return frame(name).TextRange().LanguageID(); };
  select({"A", "Empty"});
  tools.callMethod("setLanguage", "1031");
  EXPECT_EQ(language("A"), 1031);
  EXPECT_NE(language("B"), 1031);
  frame("A").TextRange().Characters(5, 3).Select();
  tools.setLanguage(1036);
  EXPECT_EQ(language("A"), host::mixed);
  EXPECT_EQ(frame("A").TextRange().Characters(5, 3).LanguageID(), 1036);
  host->selectShapes({});  // nothing selected: all of the slide in view
  tools.setLanguage(2057);
  EXPECT_EQ(language("A"), 2057);
  EXPECT_EQ(language("B"), 2057);
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(TextTools, MarginsAreAskedForInCentimetres) {
  auto slide = deck.slide();
  slide.shape("rect", 0, 0, 100, 50).named("A").text("a").insets(28.35, 28.35, 28.35, 28.35);
  slide.shape("rect", 0, 0, 100, 50).named("B").text("b").insets(5, 6, 7, 8);
  open();
  const auto margins = [&](const char* name) {
    const host::TextFrame f = frame(name);
    return std::vector<float>{f.MarginLeft(), f.MarginTop(), f.MarginRight(), f.MarginBottom()};
  };
  select({"A"});
  messages.toolkit().addDialog("MarginInput: btnOK");  // 1.00 as it is
  tools.setMargins();
  EXPECT_EQ(margins("A"), (std::vector<float>(4, 28.35F)));

  select({"A", "B"});
  messages.toolkit().addDialog("MarginInput: tbMargin=2; btnOK");
  tools.setMargins();
  EXPECT_EQ(margins("A"), std::vector<float>(4, 56.7F));
  EXPECT_EQ(margins("B"), std::vector<float>(4, 56.7F));

  messages.toolkit().addDialog("MarginInput: Opt(1)=1; tbM(0)=1; tbM(3)=0; btnOK");
  tools.setMargins();
  EXPECT_EQ(margins("B"), (std::vector<float>{28.35F, 56.7F, 56.7F, 0}));
  messages.toolkit().addDialog("MarginInput: tbMargin=5; btnCancel");
  tools.setMargins();
  EXPECT_EQ(margins("B"), (std::vector<float>{28.35F, 56.7F, 56.7F, 0}));
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(TextTools, BadMarginsAreRefused) {
  auto slide = deck.slide();
  slide.shape("rect", 0, 0, 100, 50).named("A").text("a");
  slide.shape("rect", 0, 0, 100, 50).named("B").text("b").insets(5, 6, 7, 8);
  open();
  select({"A", "B"});
  struct Case {
    const char* value;
    Texts messages;
    Texts failures;
  };
  const Case cases[] = {{"abc", {product + "[critical] Please enter a numeric value."}, {}},
                        {"-1", {product + "[critical] Please enter a value in cm."}, {}},
                        {"1001", {product + "[critical] Please enter a value in cm."}, {}},
                        {"", {product + "[critical] Please enter a value in cm."}, {}},
                        {"400", {}, {"MarginInput, tbMargin_Validate: 6"}}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.value);
    messages.toolkit().addDialog(std::string("MarginInput: tbMargin=") + c.value + "; btnOK");
    base::resumeNext([&] { tools.setMargins(); });
    Texts shown = told();
    if (shown.size() > 1) shown.resize(1);  // leaving the form may ask again
    EXPECT_EQ(shown, c.messages);
    Texts traps = failures.take();
    std::erase_if(traps, [](const std::string& text) { return text.ends_with(": 5"); });  // the script's own
    EXPECT_EQ(traps, c.failures);
  }
  EXPECT_EQ(MarginInput::getMarginText(28.35F), "1.00");
  EXPECT_EQ(MarginInput::getMarginValue(28.35F), 100);
  EXPECT_EQ(MarginInput::getMarginValue(-5), 0);
}

TEST_F(TextTools, StatisticsCountWhatTheHostCallsWords) {
  auto slide = deck.slide();
  slide.textBox(0, 0, 400, 100, "One, two!\nthree (four)").named("A");
  slide.textBox(0, 0, 400, 100, "a , b").named("B");
  slide.picture(0, 0, 10, 10).named("P");
  open();
  struct Case {
    std::vector<std::string> shapes;
    const char* text;
  };
  // "," with a blank behind it counts; "!" with the paragraph's end too; "(" and ")" alone don't.
  const Case cases[] = {
      {{"A"}, "Characters (incl. blanks): 22\nCharacters (no blanks): 19\nWords: 6"},
      {{"A", "B", "P"}, "Characters (incl. blanks): 27\nCharacters (no blanks): 22\nWords: 9"}};
  for (const Case& c : cases) {
    select(c.shapes);
    tools.countWords();
    EXPECT_EQ(messages.take(), Texts{std::string("Text statistics [none] ") + c.text});
  }
}

TEST_F(TextTools, TogglesGoOnForMixedShapesAndShowIt) {
  auto slide = deck.slide();
  slide.textBox(0, 0, 100, 100, "fits").named("A").fitToText();
  slide.shape("rect", 0, 0, 100, 100).named("B").text("b");
  slide.shape("rect", 0, 0, 100, 100).named("Empty");
  open("11.0");
  const auto bar =
      host->application().CommandBars().Add("Vellumark for presentations - Trimline Tools", 4, true);
  for (const char* caption : {"Fit AutoShape to text", "Wrap text in AutoShape"}) {
    bar.Controls().Add(host::msoControlButton).Caption(caption);
  }
  const auto state = [&](const char* caption) { return bar.Controls().Item(caption).State(); };
  select({"A", "B", "Empty"});
  const float before = shape("B").Height();
  tools.adjustAutoShapeToText();
  EXPECT_EQ(frame("B").AutoSize(), host::ppAutoSizeShapeToFitText);
  EXPECT_LT(shape("B").Height(), before);
  EXPECT_LT(shape("Empty").Height(), before);
  EXPECT_EQ(state("Fit AutoShape to text"), host::msoButtonDown);
  tools.adjustAutoShapeToText();
  EXPECT_EQ(frame("A").AutoSize(), host::ppAutoSizeNone);
  EXPECT_EQ(state("Fit AutoShape to text"), host::msoButtonUp);

  frame("A").WordWrap(false);
  tools.wrapText();
  EXPECT_EQ(frame("A").WordWrap(), host::msoTrue);
  EXPECT_EQ(state("Wrap text in AutoShape"), host::msoButtonDown);
  tools.wrapText();
  EXPECT_EQ(frame("B").WordWrap(), host::msoFalse);
  EXPECT_EQ(state("Wrap text in AutoShape"), host::msoButtonUp);
  EXPECT_EQ(failures.take(), Texts{});
}

}  // namespace
}  // namespace vellumark::tools
