// Formats of text: what is inherited, what is written, and where.

#include <cmath>

#include "deck/model/shape_fixture.h"
#include "host/constants.h"

namespace vellumark::test {

using namespace decks;
namespace {

using base::errors::outOfRange;

class TextFormatTest : public ShapeTest {
 protected:
  host::TextRange text(const std::string& name) { return shape(name).TextFrame().TextRange(); }
  host::Font font(const std::string& name) { return text(name).Font(); }
};

TEST_F(TextFormatTest, FormatsComeFromShapePlaceholderMasterAndTheme) {
  Theme theme;
  theme.body = "Georgia";
  theme.headings = "Verdana";
  theme.title = {.size = 40, .bold = true, .color = "accent2"};
  theme.bodySize = 26;
  deck.master().theme(theme);
  auto slide = deck.slide("obj");
  slide.placeholder("title").named("title").text("Title");
  slide.placeholder("", 1).named("body").text("One").text("Two", {.level = 1});
  slide.textBox(0, 0, 100, 50, "box").named("box");
  slide.shape("rect", 0, 0, 100, 50).named("own").text("own", {.size = 9, .italic = true, .color = "FF8000"});
  open();
  EXPECT_EQ(font("title").Size(), 40);
  EXPECT_EQ(font("title").Bold(), host::msoTrue);
  EXPECT_EQ(font("title").Name(), "Verdana");
  EXPECT_EQ(font("title").Color().RGB(), 0x3D55C8);  // accent2 C8553D, red low
  EXPECT_EQ(font("title").Color().SchemeColor(), 6);
  EXPECT_EQ(font("body").Size(), host::mixed);
  EXPECT_EQ(text("body").Paragraphs(1).Font().Size(), 26);
  EXPECT_EQ(text("body").Paragraphs(2).Font().Size(), 24);
  EXPECT_EQ(text("body").IndentLevel(), host::mixed);
  EXPECT_EQ(font("body").Name(), "Georgia");
  EXPECT_EQ(font("box").Size(), 18);
  EXPECT_EQ(font("own").Size(), 9);
  EXPECT_EQ(font("own").Italic(), host::msoTrue);
  EXPECT_EQ(font("own").Color().RGB(), 0x0080FF);
  EXPECT_EQ(font("own").Color().SchemeColor(), 0);
}

TEST_F(TextFormatTest, AFormatIsWrittenForItsCharactersOnly) {
  deck.slide().textBox(0, 0, 300, 100, "one two\nthree").named("A");
  open();
  text("A").Characters(5, 3).Font().Bold(true);
  text("A").Characters(5, 3).Font().Name("Courier New");
  text("A").Paragraphs(2).Font().Size(30);
  text("A").Paragraphs(2).Font().Color().RGB(0x332211);
  reopen();
  EXPECT_EQ(font("A").Bold(), host::mixed);
  EXPECT_EQ(text("A").Characters(1, 4).Font().Bold(), host::msoFalse);
  EXPECT_EQ(text("A").Characters(5, 3).Font().Bold(), host::msoTrue);
  EXPECT_EQ(text("A").Characters(5, 3).Font().Name(), "Courier New");
  EXPECT_EQ(font("A").Name(), "");
  EXPECT_EQ(text("A").Paragraphs(1).Font().Size(), 18);
  EXPECT_EQ(text("A").Paragraphs(2).Font().Size(), 30);
  EXPECT_EQ(text("A").Paragraphs(2).Font().Color().RGB(), 0x332211);
  // Back again the runs are one.
  text("A").Characters(5, 3).Font().Bold(false);
  text("A").Characters(1, 4).Font().Bold(false);
  text("A").Paragraphs(1).Font().Name("Arial");
  EXPECT_EQ(count(slideXml(), "<a:r>"), 2);
  EXPECT_EQ(errorOf([&] { font("A").Size(0.5); }), outOfRange);
}

TEST_F(TextFormatTest, AnEmptyTextKeepsTheFormatForWhatComes) {
  deck.slide().shape("rect", 0, 0, 100, 50).named("A");
  open();
  font("A").Size(31);
  font("A").Bold(true);
  text("A").Text("new");
  EXPECT_EQ(font("A").Size(), 31);
  EXPECT_EQ(font("A").Bold(), host::msoTrue);
  const host::TextRange more = text("A").InsertAfter(" more");
  more.Font().Bold(false);
  EXPECT_EQ(text("A").Text(), "new more");
  EXPECT_EQ(more.Font().Size(), 31);
  EXPECT_EQ(text("A").Characters(1, 3).Font().Bold(), host::msoTrue);
  EXPECT_EQ(more.Font().Bold(), host::msoFalse);
}

TEST_F(TextFormatTest, ParagraphsHaveAlignmentLevelAndBullet) {
  auto slide = deck.slide("obj");
  slide.placeholder("", 1).named("body").text("One\nTwo");
  slide.textBox(0, 0, 300, 100, "one\ntwo\nthree").named("A");
  open();
  text("A").Paragraphs(2).ParagraphFormat().Alignment(host::ppAlignRight);
  EXPECT_EQ(text("A").ParagraphFormat().Alignment(), host::mixed);
  EXPECT_EQ(text("A").Paragraphs(1).ParagraphFormat().Alignment(), host::ppAlignLeft);
  EXPECT_EQ(text("A").Paragraphs(2).ParagraphFormat().Alignment(), host::ppAlignRight);

  EXPECT_EQ(text("A").ParagraphFormat().Bullet().Visible(), host::msoFalse);
  EXPECT_EQ(text("body").ParagraphFormat().Bullet().Visible(), host::msoTrue);
  text("A").Paragraphs(1).ParagraphFormat().Bullet().Visible(true);
  text("body").Paragraphs(1).ParagraphFormat().Bullet().Visible(false);
  reopen();
  EXPECT_EQ(text("A").ParagraphFormat().Bullet().Visible(), host::mixed);
  EXPECT_EQ(text("A").Paragraphs(1).ParagraphFormat().Bullet().Visible(), host::msoTrue);
  EXPECT_EQ(text("body").Paragraphs(1).ParagraphFormat().Bullet().Visible(), host::msoFalse);
  EXPECT_EQ(text("body").Paragraphs(2).ParagraphFormat().Bullet().Visible(), host::msoTrue);

  text("A").Paragraphs(2).IndentLevel(4);
  EXPECT_EQ(text("A").Paragraphs(2).IndentLevel(), 4);
  EXPECT_EQ(errorOf([&] { text("A").IndentLevel(10); }), outOfRange);
  EXPECT_EQ(errorOf([&] { text("A").IndentLevel(0); }), outOfRange);
  open("11.0");
  EXPECT_EQ(errorOf([&] { text("A").IndentLevel(6); }), outOfRange);
  EXPECT_EQ(errorOf([&] { shape("A").TextFrame2(); }), base::errors::noSuchMember);
}

TEST_F(TextFormatTest, TheLaterModelHasTheLevelInTheParagraphsFormat) {
  deck.slide().textBox(0, 0, 300, 100, "one\ntwo\nthree").named("A");
  open();
  const host::TextRange2 range = shape("A").TextFrame2().TextRange();
  EXPECT_EQ(range.object()->typeName(), "TextRange2");
  EXPECT_EQ(range.Paragraphs().Count(), 3);
  range.Paragraphs(2).ParagraphFormat().IndentLevel(9);
  EXPECT_EQ(text("A").Paragraphs(2).IndentLevel(), 9);
  EXPECT_EQ(range.Characters(6, 1).ParagraphFormat().IndentLevel(), 9);
  EXPECT_EQ(errorOf([&] { host::TextRange(range.object()).IndentLevel(); }), base::errors::noSuchMember);
  EXPECT_EQ(errorOf([&] { host::ParagraphFormat2(text("A").ParagraphFormat().object()).IndentLevel(); }),
            base::errors::noSuchMember);
}

TEST_F(TextFormatTest, LanguagesAreLocaleIds) {
  deck.slide().textBox(0, 0, 300, 100, "eins two", {.language = "de-DE"}).named("A");
  open();
  EXPECT_EQ(text("A").LanguageID(), 1031);
  text("A").Characters(6, 3).LanguageID(2057);
  reopen();
  EXPECT_EQ(text("A").LanguageID(), host::mixed);
  EXPECT_EQ(text("A").Characters(6, 3).LanguageID(), 2057);
  EXPECT_NE(slideXml().find("lang=\"en-GB\""), std::string::npos);
  EXPECT_EQ(errorOf([&] { text("A").LanguageID(12345); }), outOfRange);
}

TEST_F(TextFormatTest, RulersHoldTheMarginsOfEachLevel) {
  deck.slide().textBox(0, 0, 300, 100, "one\ntwo").named("A");
  open();
  const auto levels = [&] { return shape("A").TextFrame().Ruler().Levels(); };
  EXPECT_EQ(levels().Count(), 9);
  levels().Item(2).FirstMargin(10);
  levels().Item(2).LeftMargin(30);
  text("A").Paragraphs(2).IndentLevel(2);
  reopen();
  EXPECT_EQ(levels().Item(2).FirstMargin(), 10);
  EXPECT_EQ(levels().Item(2).LeftMargin(), 30);
  EXPECT_EQ(levels().Item(1).LeftMargin(), 0);
  levels().Item(2).LeftMargin(5);  // the first line stays where it is
  EXPECT_EQ(levels().Item(2).FirstMargin(), 10);
  EXPECT_EQ(errorOf([&] { levels().Item(10); }), base::errors::invalidRequest);
  EXPECT_EQ(errorOf([&] { levels().Item(1).LeftMargin(-1); }), outOfRange);
  open("11.0");
  EXPECT_EQ(levels().Count(), 5);
}

TEST_F(TextFormatTest, TabStopsStandInAllParagraphs) {
  deck.slide().textBox(0, 0, 300, 100, "one\ntwo").named("A");
  open();
  const auto tabs = [&] { return shape("A").TextFrame().Ruler().TabStops(); };
  EXPECT_EQ(tabs().Count(), 0);
  tabs().Add(host::ppTabStopRight, 200);
  tabs().Add(host::ppTabStopLeft, 50);
  reopen();
  ASSERT_EQ(tabs().Count(), 2);
  EXPECT_EQ(tabs().Item(1).Position(), 50);
  EXPECT_EQ(tabs().Item(2).Type(), host::ppTabStopRight);
  EXPECT_EQ(count(slideXml(), "<a:tab "), 4);
  tabs().Item(1).Clear();
  ASSERT_EQ(tabs().Count(), 1);
  EXPECT_EQ(tabs().Item(1).Position(), 200);
}

TEST_F(TextFormatTest, ATabStopAtTheEndOfTheLineStandsInItInHundredthsOfAMillimetreToo) {
  const auto hundredths = [](float points) { return std::lround(points * 12700 / 360); };
  for (const float margin : {0.0F, 5.6F, 6.4F, 7.2F, 8.0F}) {
    for (float width = 600; width < 602; width += 0.1F) {
      deck = decks::DeckBuilder();
      deck.slide().textBox(0, 0, width, 30, "a\tb").named("A");
      open();
      const host::TextFrame frame = shape("A").TextFrame();
      frame.MarginLeft(margin);
      frame.MarginRight(margin);
      const float end = shape("A").Width() - 2 * margin;
      frame.Ruler().TabStops().Add(host::ppTabStopRight, end);
      const float position = frame.Ruler().TabStops().Item(1).Position();
      EXPECT_LE(hundredths(position), hundredths(width) - 2 * hundredths(margin)) << margin << " " << width;
      EXPECT_NEAR(position, end, 0.04) << margin << " " << width;
    }
  }
}

TEST_F(TextFormatTest, FillsAndLinesComeFromStyleAndAreWritten) {
  auto slide = deck.slide();
  slide.shape("rect", 0, 0, 100, 50).named("A").fill("accent1").line("000000", 3);
  slide.textBox(0, 0, 100, 50, "x").named("box");
  open();
  EXPECT_EQ(shape("A").Fill().ForeColor().RGB(), 0x8C5D2F);
  EXPECT_EQ(shape("A").Line().Weight(), 3);
  EXPECT_EQ(shape("box").Fill().Visible(), host::msoFalse);
  const host::Shape added = shapes().AddShape(1, 0, 0, 10, 10);
  EXPECT_EQ(added.Fill().ForeColor().SchemeColor(), 5);
  EXPECT_EQ(added.Fill().Visible(), host::msoTrue);
  added.Fill().ForeColor().RGB(0x0000FF);
  added.Line().ForeColor().SchemeColor(2);
  added.Line().Weight(0.5F);
  added.Line().Visible(false);
  shape("A").Fill().Visible(false);
  const std::string name = added.Name();
  reopen();
  EXPECT_EQ(shape(name).Fill().ForeColor().RGB(), 0x0000FF);
  EXPECT_EQ(shape(name).Line().Weight(), 0.5F);
  EXPECT_EQ(shape(name).Line().Visible(), host::msoFalse);
  EXPECT_EQ(shape("A").Fill().Visible(), host::msoFalse);
  shape(name).Line().Visible(true);
  EXPECT_EQ(shape(name).Line().Visible(), host::msoTrue);
  EXPECT_EQ(errorOf([&] { shape("A").Fill().ForeColor().SchemeColor(9); }), outOfRange);
}

}  // namespace
}  // namespace vellumark::test
