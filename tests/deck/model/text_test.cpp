#include "deck/model/shape_fixture.h"
#include "host/constants.h"

namespace vellumark::test {

using namespace decks;
namespace {

using base::errors::outOfRange;

class TextTest : public ShapeTest {
 protected:
  /// A slide with one shape whose paragraphs are those.
  void openText(const std::string& paragraphs) {
    deck.slide().xml(R"(<p:sp><p:nvSpPr><p:cNvPr id="2" name="A"/><p:cNvSpPr/><p:nvPr/></p:nvSpPr><p:spPr/>)"
                     R"(<p:txBody><a:bodyPr/><a:lstStyle/>)" +
                     paragraphs + "</p:txBody></p:sp>");
    open();
  }
  host::TextFrame frame() { return shape("A").TextFrame(); }
  host::TextRange text() { return frame().TextRange(); }
  /// The paragraphs as they are saved.
  std::string paragraphs() {
    const std::string xml = slideXml();
    const std::size_t begin = xml.find("<a:lstStyle/>") + 13;
    return xml.substr(begin, xml.find("</p:txBody>") - begin);
  }
};

const std::string run(const std::string& text, const std::string& format = "") {
  return "<a:r>" + format + "<a:t>" + text + "</a:t></a:r>";
}
const std::string bold = R"(<a:rPr b="1"/>)";
const std::string big = R"(<a:rPr sz="3000"/>)";

TEST_F(TextTest, ReadsParagraphsBreaksFieldsAndSpaces) {
  openText("<a:p><a:pPr lvl=\"1\"/>" + run(" one ") + "<a:br/>" + run("t\twö") + "</a:p><a:p/><a:p>" +
           R"(<a:fld id="{A}" type="slidenum"><a:rPr/><a:t>7</a:t></a:fld>)" + run("<![CDATA[<&>]]>") +
           "<a:endParaRPr/></a:p>");
  EXPECT_EQ(text().Text(), " one \vt\twö\r\r7<&>");
  EXPECT_EQ(text().Length(), 16);
  EXPECT_EQ(frame().HasText(), -1);
  text().Characters(2, 3).Text("1");
  reopen();
  EXPECT_EQ(text().Text(), " 1 \vt\twö\r\r7<&>");
}

TEST_F(TextTest, ReplacesTextKeepingFormats) {
  struct Case {
    const char* what;
    std::string before;
    int start, length;
    std::string text;
    std::string after;
  };
  const std::string two = "<a:p>" + run("ab", bold) + run("cd", big) + "</a:p>";
  const std::string level = R"(<a:pPr lvl="1"/>)";
  const std::string lines = "<a:p>" + run("ab", bold) + "</a:p><a:p>" + level + run("cd", big) + "</a:p>";
  const Case cases[] = {
      {"all", two, 1, 4, "x", "<a:p>" + run("x", bold) + "</a:p>"},
      {"in a run", two, 2, 1, "x", "<a:p>" + run("ax", bold) + run("cd", big) + "</a:p>"},
      {"over two runs", two, 2, 2, "x", "<a:p>" + run("ax", bold) + run("d", big) + "</a:p>"},
      {"second run", two, 3, 2, "x", "<a:p>" + run("ab", bold) + run("x", big) + "</a:p>"},
      {"nothing in the middle", two, 3, 0, "x", "<a:p>" + run("abx", bold) + run("cd", big) + "</a:p>"},
      {"to nothing", two, 1, 4, "", "<a:p><a:endParaRPr b=\"1\"/></a:p>"},
      {"a paragraph mark", lines, 3, 1, "", "<a:p>" + run("ab", bold) + run("cd", big) + "</a:p>"},
      {"over a mark", lines, 2, 3, "x\ry",
       "<a:p>" + run("ax", bold) + "</a:p><a:p>" + level + run("y", bold) + run("d", big) + "</a:p>"},
      {"more paragraphs", lines, 4, 2, "x\ry\rz",
       "<a:p>" + run("ab", bold) + "</a:p><a:p>" + level + run("x", big) + "</a:p><a:p>" + level +
           run("y", big) + "</a:p><a:p>" + level + run("z", big) + "</a:p>"},
      {"split", two, 3, 0, "\r", "<a:p>" + run("ab", bold) + "</a:p><a:p>" + run("cd", big) + "</a:p>"},
      {"fewer paragraphs", lines, 1, 5, "x", "<a:p>" + run("x", bold) + "</a:p>"},
      {"break", two, 1, 4, "x\vy",
       "<a:p>" + run("x", bold) + "<a:br>" + bold + "</a:br>" + run("y", bold) + "</a:p>"},
      {"line ends of all kinds", "<a:p/>", 1, 0, "a\nb\r\nc\rd",
       "<a:p>" + run("a") + "</a:p><a:p>" + run("b") + "</a:p><a:p>" + run("c") + "</a:p><a:p>" + run("d") +
           "</a:p>"},
      {"what XML can't hold", "<a:p/>", 1, 0, std::string("a\x01\x1f\xEF\xBF\xBF<b\0", 9),
       "<a:p>" + run("a&lt;b") + "</a:p>"},
      {"an empty paragraph's format", R"(<a:p><a:endParaRPr sz="3000"/></a:p>)", 1, 0, " x ",
       "<a:p>" + run(" x ", big) + R"(<a:endParaRPr sz="3000"/></a:p>)"},
      {"half a field",
       R"(<a:p><a:fld id="{A}" type="datetime"><a:rPr b="1"/><a:pPr/><a:t>2026</a:t></a:fld></a:p>)", 3, 2,
       "x", "<a:p>" + run("20x", bold) + "</a:p>"},
      {"half a pair", "<a:p>" + run("a\xF0\x9F\x98\x80z") + "</a:p>", 3, 1, "x",
       "<a:p>" + run("axz") + "</a:p>"},
      {"no paragraph at all", "", 1, 0, "x", "<a:p>" + run("x") + "</a:p>"},
      {"far behind the end", two, 100, 100, "x", "<a:p>" + run("ab", bold) + run("cdx", big) + "</a:p>"},
  };
  for (const Case& one : cases) {
    deck = {};
    openText(one.before);
    const host::ObjectRef part = deck::makeTextRange(
        host->state(), deck::shapesOf(host->state()->documents.front()->slide(256)).front(), one.start,
        one.length);
    host::TextRange(part).Text(one.text);
    EXPECT_EQ(paragraphs(), one.after) << one.what;
  }
}

TEST_F(TextTest, InsertsBeforeAndBehind) {
  openText("<a:p>" + run("ab", bold) + run("cd", big) + "</a:p>");
  const host::TextRange middle = text().Characters(3, 2);
  const auto insert = [&](const char* method, const char* what) {
    return host::TextRange(
        host::callByName(middle.object(), method, std::array{host::Value(what)}).toObject());
  };
  EXPECT_EQ(insert("InsertBefore", "<").Start(), 3);
  EXPECT_EQ(insert("InsertAfter", ">").Text(), ">");
  EXPECT_EQ(middle.Text(), "<cd>");
  EXPECT_EQ(paragraphs(), "<a:p>" + run("ab", bold) + run("&lt;cd&gt;", big) + "</a:p>");
  host::callByName(middle.object(), "Delete");
  EXPECT_EQ(text().Text(), "ab");
}

TEST_F(TextTest, DividesTextIntoUnits) {
  openText("<a:p>" + run("Don't, ", bold) + run("pay", bold) + run(" 3.14!", big) + "</a:p><a:p>" +
           run("Ende\xE2\x80\xA6") + "</a:p><a:p/>");
  const auto units = [&](const char* kind) {
    std::vector<std::string> found;
    const host::TextRange all(host::getByName(text().object(), kind).toObject());
    for (int i = 1; i <= all.Count(); ++i) {
      const host::Value arguments[] = {i, -1};
      found.push_back(host::TextRange(host::getByName(text().object(), kind, arguments).toObject()).Text());
    }
    return found;
  };
  using Texts = std::vector<std::string>;
  EXPECT_EQ(units("Paragraphs"), (Texts{"Don't, pay 3.14!\r", "Ende\xE2\x80\xA6\r"}));
  EXPECT_EQ(units("Words"), (Texts{"Don't", ", ", "pay ", "3.14", "!\r", "Ende", "\xE2\x80\xA6\r"}));
  EXPECT_EQ(units("Runs"), (Texts{"Don't, pay", " 3.14!\r", "Ende\xE2\x80\xA6\r"}));
  EXPECT_EQ(units("Characters").size(), 23u);

  EXPECT_EQ(text().Paragraphs(2).Start(), 18);
  EXPECT_EQ(text().Paragraphs(9, 4).Text(), "Ende\xE2\x80\xA6\r");
  EXPECT_EQ(text().Paragraphs(2).Characters(1, 2).Text(), "En");
  EXPECT_EQ(text().Characters(-1, 3).Text(), "Don");
  EXPECT_EQ(text().Characters(5, 6).Paragraphs().Count(), 1);
  text().Text("");
  EXPECT_EQ(text().Paragraphs().Count(), 0);
  EXPECT_EQ(text().Paragraphs(1).Length(), 0);
}

/// Units are looked up again and again between changes of formats and texts.
TEST_F(TextTest, UnitsFollowEachChange) {
  openText("<a:p>" + run("one two") + "</a:p><a:p>" + run("three") + "</a:p>");
  const auto state = [&] {
    std::string all;
    for (int i = 1; i <= text().Paragraphs().Count(); ++i) {
      const host::TextRange paragraph = text().Paragraphs(i);
      all += paragraph.Text() + "|" + std::to_string(paragraph.Words().Count()) +
             std::to_string(paragraph.IndentLevel()) + ";";
    }
    return all;
  };
  EXPECT_EQ(state(), "one two\r|21;three|11;");
  text().Paragraphs(2).IndentLevel(3);
  EXPECT_EQ(state(), "one two\r|21;three|13;");
  text().Paragraphs(1).ParagraphFormat().Alignment(host::ppAlignCenter);
  text().Paragraphs(2).ParagraphFormat().Bullet().Visible(true);
  EXPECT_EQ(state(), "one two\r|21;three|13;");
  text().Words(2).Font().Bold(true);
  EXPECT_EQ(state(), "one two\r|21;three|13;");
  text().Paragraphs(2).IndentLevel(1);
  text().Paragraphs(1).InsertAfter("a\r");
  EXPECT_EQ(state(), "one two\r|21;a\r|11;three|11;");
  text().Paragraphs(1).Text("");
  EXPECT_EQ(state(), "a\r|11;three|11;");
  host::callByName(shape("A").object(), "Duplicate");
  shapes().Item(2).TextFrame().TextRange().Text("x");
  EXPECT_EQ(state(), "a\r|11;three|11;");
}

TEST_F(TextTest, FramesHaveDefaultsInheritAndWriteInOrder) {
  deck.master().find("body").insets(1, 2, 3, 4).anchor("b").noWrap().fitToText();
  auto slide = deck.slide("obj");
  slide.placeholder("", 1).named("Body").text("x");
  slide.xml(
      R"(<p:sp><p:nvSpPr><p:cNvPr id="20" name="A"/><p:cNvSpPr/><p:nvPr/></p:nvSpPr><p:spPr/><p:txBody>)"
      R"(<a:bodyPr><a:prstTxWarp prst="x"/><a:normAutofit/><a:scene3d/></a:bodyPr><a:p/></p:txBody></p:sp>)");
  open();
  const host::TextFrame a = frame();
  EXPECT_EQ(a.MarginLeft(), 7.2f);
  EXPECT_EQ(a.MarginTop(), 3.6f);
  EXPECT_EQ(a.WordWrap(), -1);
  EXPECT_EQ(a.VerticalAnchor(), host::msoAnchorTop);
  EXPECT_EQ(a.AutoSize(), host::ppAutoSizeMixed);
  EXPECT_EQ(a.HasText(), 0);

  const host::TextFrame body = shape("Body").TextFrame();
  EXPECT_EQ(body.MarginRight(), 3);
  EXPECT_EQ(body.MarginBottom(), 4);
  EXPECT_EQ(body.WordWrap(), 0);
  EXPECT_EQ(body.VerticalAnchor(), host::msoAnchorBottom);
  EXPECT_EQ(body.AutoSize(), host::ppAutoSizeShapeToFitText);
  body.AutoSize(host::ppAutoSizeNone);
  EXPECT_EQ(body.AutoSize(), host::ppAutoSizeNone);

  a.AutoSize(host::ppAutoSizeShapeToFitText), a.WordWrap(false), a.MarginLeft(10), a.MarginTop(0);
  a.VerticalAnchor(host::msoAnchorMiddle);
  EXPECT_NE(
      slideXml().find(R"(<a:bodyPr wrap="none" lIns="127000" tIns="0" anchor="ctr"><a:prstTxWarp prst="x"/>)"
                      R"(<a:spAutoFit/><a:scene3d/></a:bodyPr>)"),
      std::string::npos);
  EXPECT_EQ(errorOf([&] { a.MarginLeft(-1); }), outOfRange);
  EXPECT_EQ(errorOf([&] { a.VerticalAnchor(static_cast<host::MsoVerticalAnchor>(2)); }), outOfRange);
  EXPECT_EQ(errorOf([&] { a.AutoSize(host::ppAutoSizeMixed); }), outOfRange);
}

}  // namespace
}  // namespace vellumark::test
