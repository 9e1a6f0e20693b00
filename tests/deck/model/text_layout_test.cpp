// Text broken into lines, and shapes that follow it. The fonts are Arial's metric twin and Calibri's.

#include "deck/model/shape_fixture.h"
#include "host/constants.h"

namespace vellumark::test {

using namespace decks;
namespace {

class TextLayoutTest : public ShapeTest {
 protected:
  host::TextRange text(const std::string& name) { return shape(name).TextFrame().TextRange(); }
  void fit(const std::string& name) { shape(name).TextFrame().AutoSize(host::ppAutoSizeShapeToFitText); }
};

TEST_F(TextLayoutTest, AShapeIsAsHighAsTheHostMakesIt) {
  struct Case {
    const char* what;
    std::string text;
    double size;
    double height;
  };
  const Case cases[] = {{"one line", "abc", 18, 369'332 / 12'700.0},
                        {"three lines", "a\nb\nc", 18, 923'330 / 12'700.0},
                        {"no text", "", 18, 369'332 / 12'700.0},
                        {"14 points", "x\ny", 14, 523'220 / 12'700.0},
                        {"11 points", "x\ny\nz", 11, 600'164 / 12'700.0}};
  for (const Case& c : cases) {
    DeckBuilder one;
    one.slide().textBox(40, 50, 200, 10, c.text, {.size = c.size}).named("A");
    one.save(folder.path("one.pptx"));
    openFile(folder.path("one.pptx"));
    text("A").Font().Size(static_cast<float>(c.size));
    fit("A");
    EXPECT_NEAR(shape("A").Height(), c.height, 0.005) << c.what;
    EXPECT_EQ(shape("A").Top(), 50) << c.what;
    EXPECT_EQ(shape("A").Width(), 200) << c.what;
  }
}

TEST_F(TextLayoutTest, LinesBreakBetweenWordsAndInLongOnes) {
  auto slide = deck.slide();
  slide.textBox(0, 0, 114.4, 20, "aaaa aaaa aaaa", {.size = 20, .font = "Arial"}).named("words");
  slide.textBox(0, 0, 50, 20, "mmmmmmmm", {.size = 20, .font = "Arial"}).named("long");
  slide.textBox(0, 0, 300, 20, "one\vtwo", {.size = 20, .font = "Arial"}).named("break");
  open();
  // Each "aaaa" is 44.5 points wide and a blank 5.6: two of them fit 100 points.
  EXPECT_NEAR(text("words").BoundHeight(), 2 * 24.23, 0.05);
  EXPECT_NEAR(text("words").BoundWidth(), 94.5, 0.5);
  EXPECT_NEAR(text("words").Characters(11, 4).BoundWidth(), 44.5, 0.3);
  EXPECT_NEAR(text("words").Characters(11, 4).BoundTop(), 3.6 + 24.23, 0.05);
  EXPECT_NEAR(text("long").BoundHeight(), 4 * 24.23, 0.1);  // 16.7 points for an m: two a line
  EXPECT_NEAR(text("break").BoundHeight(), 2 * 24.23, 0.05);
  shape("words").TextFrame().WordWrap(false);
  EXPECT_NEAR(text("words").BoundHeight(), 24.23, 0.05);
  EXPECT_NEAR(text("words").BoundWidth(), 3 * 44.5 + 2 * 5.6, 0.6);
}

TEST_F(TextLayoutTest, CapitalsAreAsWideAsTheyAreShown) {
  const auto box = [](const std::string& text, const std::string& format) {
    return "<p:sp><p:nvSpPr><p:cNvPr id='" + std::to_string(format.empty() ? 51 : 50) + "' name='" +
           (format.empty() ? "plain" : "capitals") +
           "'/><p:cNvSpPr txBox='1'/><p:nvPr/></p:nvSpPr><p:spPr><a:xfrm><a:off x='0' y='0'/><a:ext "
           "cx='9000000' "
           "cy='500000'/></a:xfrm><a:prstGeom prst='rect'/></p:spPr><p:txBody><a:bodyPr/><a:p><a:r><a:rPr " +
           format + "/><a:t>" + text + "</a:t></a:r></a:p></p:txBody></p:sp>";
  };
  const std::pair<const char*, const char*> cases[] = {{"mixed Text 12", "MIXED TEXT 12"},
                                                       {"äéžþÿ ß÷", "ÄÉŽÞŸ ß÷"},
                                                       {"αβγ ός", "ΑΒΓ ΌΣ"},
                                                       {"жук ёж", "ЖУК ЁЖ"}};
  for (const auto& [small, large] : cases) {
    deck = DeckBuilder();
    deck.slide().xml(box(small, "cap='all'"));
    deck.slide().xml(box(large, ""));
    open();
    const auto width = [&](int slide, const char* name) {
      return shapes(slide).Item(std::string(name)).TextFrame().TextRange().BoundWidth();
    };
    EXPECT_FLOAT_EQ(width(1, "capitals"), width(2, "plain")) << small;
    EXPECT_EQ(text("capitals").Text(), small) << "the text itself stays";
  }
}

TEST_F(TextLayoutTest, ShapesFollowEveryChangeOfTheirText) {
  deck.slide().textBox(100, 100, 114.4, 20, "aaaa", {.size = 20, .font = "Arial"}).named("A").fitToText();
  open();
  text("A").Text("aaaa aaaa aaaa");
  const float two = shape("A").Height();
  EXPECT_NEAR(two, 7.2 + 2 * 24.23 + 0.07, 0.05);
  text("A").Font().Size(10);
  EXPECT_NEAR(shape("A").Height(), 7.2 + 12.12 + 0.07, 0.05);
  shape("A").TextFrame().MarginTop(20);
  EXPECT_NEAR(shape("A").Height(), 23.6 + 12.12 + 0.07, 0.05);
  shape("A").TextFrame().Ruler().Levels().Item(1).LeftMargin(60);
  shape("A").TextFrame().Ruler().Levels().Item(1).FirstMargin(60);
  EXPECT_NEAR(shape("A").Height(), 23.6 + 3 * 12.12 + 0.07, 0.05);
  shape("A").TextFrame().WordWrap(false);
  EXPECT_NEAR(shape("A").Width(), 14.4 + 60 + 3 * 22.25 + 2 * 2.8, 0.5);
  EXPECT_EQ(shape("A").Left(), 100);
}

TEST_F(TextLayoutTest, TheAnchorStaysWhereItIs) {
  struct Case {
    const char* anchor;
    double rotation;
    double left, top;
  };
  // The box of 100 by 100 at 200, 200 becomes 29.08 high.
  const double less = 100 - 369'332 / 12'700.0;
  const Case cases[] = {{"t", 0, 200, 200},
                        {"ctr", 0, 200, 200 + less / 2},
                        {"b", 0, 200, 200 + less},
                        {"t", 90, 200 + less / 2, 200 + less / 2},  // its upper edge looks to the right
                        {"t", 180, 200, 200 + less}};
  for (const Case& c : cases) {
    DeckBuilder one;
    one.slide().textBox(200, 200, 100, 100, "abc").named("A").anchor(c.anchor).rotate(c.rotation);
    one.save(folder.path("one.pptx"));
    openFile(folder.path("one.pptx"));
    fit("A");
    EXPECT_NEAR(shape("A").Left(), c.left, 0.01) << c.anchor << c.rotation;
    EXPECT_NEAR(shape("A").Top(), c.top, 0.01) << c.anchor << c.rotation;
  }
}

TEST_F(TextLayoutTest, TabsAndAlignmentsPlaceTheText) {
  auto slide = deck.slide();
  slide.textBox(100, 100, 314.4, 40, "a\tb\tcc", {.size = 20, .font = "Arial"}).named("tabs");
  slide.textBox(100, 200, 314.4, 40, "aaaa", {.size = 20, .font = "Arial", .align = "r"}).named("right");
  slide.textBox(100, 200, 314.4, 40, "aaaa", {.size = 20, .font = "Arial", .align = "ctr"})
      .named("middle")
      .anchor("ctr")
      .noWrap();
  open();
  const host::TabStops stops = shape("tabs").TextFrame().Ruler().TabStops();
  stops.Add(host::ppTabStopLeft, 60);
  stops.Add(host::ppTabStopRight, 300);
  EXPECT_NEAR(text("tabs").Characters(3, 1).BoundLeft(), 107.2 + 60, 0.01);
  const host::TextRange last = text("tabs").Characters(5, 2);
  EXPECT_NEAR(last.BoundLeft() + last.BoundWidth(), 107.2 + 300, 0.01);
  EXPECT_NEAR(text("right").BoundLeft() + text("right").BoundWidth(), 100 + 314.4 - 7.2, 0.01);
  EXPECT_NEAR(text("middle").BoundLeft() + text("middle").BoundWidth() / 2, 100 + 314.4 / 2, 0.01);
  EXPECT_NEAR(text("middle").BoundTop() + text("middle").BoundHeight() / 2, 220, 0.01);
}

TEST_F(TextLayoutTest, FormsKeepTheirTextInside) {
  struct Case {
    const char* preset;
    double width;  ///< of the text area in a form of 200 by 100
  };
  const Case cases[] = {{"rect", 200},     {"ellipse", 141.42}, {"roundRect", 190.24},
                        {"diamond", 100},  {"homePlate", 175},  {"chevron", 100},
                        {"triangle", 100}, {"rightArrow", 175}, {"downArrow", 100}};
  for (const Case& c : cases) {
    DeckBuilder one;
    one.slide()
        .shape(c.preset, 0, 0, 200, 100)
        .named("A")
        .insets(0, 0, 0, 0)
        .text("i", {.size = 10, .align = "l"});
    one.save(folder.path("one.pptx"));
    openFile(folder.path("one.pptx"));
    const float left = text("A").BoundLeft();
    text("A").ParagraphFormat().Alignment(host::ppAlignRight);
    const float right = text("A").BoundLeft() + text("A").BoundWidth();
    EXPECT_NEAR(right - left, c.width, 0.05) << c.preset;
  }
}

}  // namespace
}  // namespace vellumark::test
