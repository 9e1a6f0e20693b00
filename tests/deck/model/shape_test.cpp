// Kinds, properties, order, deletion, selection and making of shapes.

#include <algorithm>
#include <filesystem>

#include "base/text.h"
#include "deck/model/shape_fixture.h"
#include "host/constants.h"

namespace vellumark::test {

using namespace decks;
namespace {

using base::errors::invalidRequest;
using base::errors::outOfRange;

host::Value get(const host::Handle& object, const char* name) {
  return host::getByName(object.object(), name);
}

std::string graphic(int id, const std::string& uri, const std::string& inside = "") {
  return "<p:graphicFrame><p:nvGraphicFramePr><p:cNvPr id=\"" + std::to_string(id) + "\" name=\"" + uri +
         "\"/><p:cNvGraphicFramePr/><p:nvPr/></p:nvGraphicFramePr><p:xfrm><a:off x=\"0\" y=\"0\"/><a:ext "
         "cx=\"1\" "
         "cy=\"1\"/></p:xfrm><a:graphic><a:graphicData uri=\"http://schemas.openxmlformats.org/" +
         uri + "\">" + inside + "</a:graphicData></a:graphic></p:graphicFrame>";
}

TEST_F(ShapeTest, TellsWhatAShapeIs) {
  auto slide = deck.slide("obj");
  slide.placeholder("title").named("placeholder").text("T");
  slide.shape("rect", 0, 0, 9, 9).named("rectangle");
  slide.shape("homePlate", 0, 0, 9, 9).named("pentagon");
  slide.shape("wedgeRectCallout", 0, 0, 9, 9).named("balloon");
  slide.shape("borderCallout1", 0, 0, 9, 9).named("callout");
  slide.shape("line", 0, 0, 9, 9).named("drawn line");
  slide.shape("flowChartConnector", 0, 0, 9, 9).named("flow");
  slide.textBox(0, 0, 9, 9, "x").named("text box");
  slide.freeform(0, 0, 9, 9, {{0, 0}, {9, 9}}).named("freeform");
  slide.picture(0, 0, 9, 9).named("picture");
  slide.connector("bentConnector3", 0, 0, 9, 9).named("connector");
  slide.table(0, 0, 9, 9, {{"a"}}).named("table");
  slide.chart(0, 0, 9, 9, {{"a", 1}}).named("chart");
  slide.group(0, 0, 9, 9).named("group").children().shape("rect", 0, 0, 9, 9);
  slide.xml(graphic(90, "drawingml/2006/diagram"));
  slide.xml(graphic(91, "presentationml/2006/ole", "<p:oleObj><p:link/></p:oleObj>"));
  slide.xml(graphic(92, "unknown"));
  open();
  struct Case {
    const char* name;
    int type, autoType, textFrame;
  };
  for (const Case& one : {Case{"placeholder", 14, 1, -1},
                          {"rectangle", 1, 1, -1},
                          {"pentagon", 1, 51, -1},
                          {"balloon", 1, 105, -1},
                          {"callout", 2, 109, -1},
                          {"drawn line", 9, -2, -1},
                          {"flow", 1, 73, -1},
                          {"text box", 17, 1, -1},
                          {"freeform", 5, 138, -1},
                          {"picture", 13, 1, 0},
                          {"connector", 9, -2, 0},
                          {"table", 19, -2, 0},
                          {"chart", 3, -2, 0},
                          {"group", 6, -2, 0},
                          {"drawingml/2006/diagram", 24, -2, 0},
                          {"presentationml/2006/ole", 10, -2, 0},
                          {"unknown", -2, -2, 0}}) {
    const host::Shape found = shape(one.name);
    EXPECT_EQ(found.Type(), one.type) << one.name;
    EXPECT_EQ(found.AutoShapeType(), one.autoType) << one.name;
    EXPECT_EQ(found.HasTextFrame(), one.textFrame) << one.name;
    EXPECT_EQ(errorOf([&] { found.TextFrame(); }), one.textFrame ? 0 : outOfRange) << one.name;
    EXPECT_EQ(found.HasTable(), one.type == 19 ? -1 : 0);
    EXPECT_EQ(get(found, "Connector").toInt(), one.name == std::string("connector") ? -1 : 0);
  }
  EXPECT_EQ(errorOf([&] { shape("picture").GroupItems(); }), outOfRange);
  EXPECT_EQ(errorOf([&] { shape("picture").PlaceholderFormat(); }), outOfRange);
}

TEST_F(ShapeTest, ChangesTheAutoShapeType) {
  auto slide = deck.slide();
  slide.shape("roundRect", 0, 0, 9, 9).adjust({7}).fill("accent1").named("A");
  slide.freeform(0, 0, 9, 9, {{0, 0}, {9, 9}}).named("F");
  slide.connector("line", 0, 0, 9, 9).named("L");
  open();
  shape("A").AutoShapeType(host::msoShapeChevron);
  shape("F").AutoShapeType(host::msoShapeOval);
  EXPECT_EQ(errorOf([&] { shape("L").AutoShapeType(1); }), outOfRange);
  EXPECT_EQ(errorOf([&] { shape("A").AutoShapeType(138); }), outOfRange);
  reopen();
  EXPECT_EQ(shape("A").AutoShapeType(), host::msoShapeChevron);
  EXPECT_EQ(shape("A").Adjustments().Item(1), 0.5f);
  EXPECT_EQ(shape("F").AutoShapeType(), host::msoShapeOval);
  EXPECT_EQ(count(slideXml(), "custGeom"), 0);
}

TEST_F(ShapeTest, FindsShapesByIndexAndName) {
  auto slide = deck.slide();
  slide.shape("rect", 0, 0, 9, 9).named("One");
  slide.shape("rect", 0, 0, 9, 9).named("Two");
  open();
  EXPECT_EQ(shapes().Item("two").Name(), "Two");
  EXPECT_EQ(errorOf([&] { shapes().Item(0); }), invalidRequest);
  EXPECT_EQ(errorOf([&] { shapes().Item(3); }), invalidRequest);
  try {
    shapes().Item("Three");
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), outOfRange);
    EXPECT_EQ(error.description(), "Item Three not found in the Shapes collection.");
  }
  const host::ShapeRange range(
      host::callByName(shapes().object(), "Range", std::array{host::Value("Two"), host::Value(1)})
          .toObject());
  EXPECT_EQ(range.Item(1).Name(), "Two");
  EXPECT_EQ(range.Item(2).Name(), "One");
  EXPECT_EQ(errorOf([&] { range.Item(3); }), invalidRequest);
}

TEST_F(ShapeTest, OrdersShapesFromBackToFront) {
  auto slide = deck.slide();
  for (const char* name : {"a", "b", "c", "d"}) slide.shape("rect", 0, 0, 9, 9).named(name);
  open();
  const auto order = [&] {
    std::string names;
    for (int i = 1; i <= shapes().Count(); ++i) names += shapes().Item(i).Name();
    return names;
  };
  shape("b").ZOrder(host::msoBringToFront);
  EXPECT_EQ(order(), "acdb");
  shape("d").ZOrder(host::msoSendToBack);
  EXPECT_EQ(order(), "dacb");
  shape("d").ZOrder(host::msoBringForward);
  shape("b").ZOrder(host::msoBringForward);
  EXPECT_EQ(order(), "adcb");
  shape("a").ZOrder(host::msoSendBackward);
  shape("b").ZOrder(host::msoSendBackward);
  EXPECT_EQ(order(), "adbc");
  EXPECT_EQ(shape("b").ZOrderPosition(), 3);
  EXPECT_EQ(errorOf([&] { shape("a").ZOrder(static_cast<host::MsoZOrderCmd>(9)); }), outOfRange);
  // Together they keep their order, whatever the order of the range.
  const host::Value names[] = {"d", "a"};
  const host::ShapeRange two(host::callByName(shapes().object(), "Range", names).toObject());
  host::callByName(two.object(), "ZOrder", std::array{host::Value(0)});
  EXPECT_EQ(order(), "bcad");
}

TEST_F(ShapeTest, PartsThatOnlyADeletedShapeReferredToAreNotWritten) {
  auto slide = deck.slide();
  slide.picture(0, 0, 50, 40).named("Picture").tag("MARK", "1");
  slide.group(100, 0, 50, 50).named("Group").children().chart(100, 0, 50, 50, {{"A", 1}}).named("Chart");
  open();
  host::callByName(shape("Picture").object(), "Duplicate");
  shapes().Item(shapes().Count()).Name("Second");
  const auto parts = [&](const std::string& under) {
    presentation.SaveCopyAs(folder.path("parts.pptx"));
    const ZipEntries entries = readZipFile(folder.path("parts.pptx"));
    EXPECT_EQ(packageFaults(entries), std::vector<std::string>());
    return std::ranges::count_if(entries, [&](const auto& entry) { return entry.first.starts_with(under); });
  };
  EXPECT_EQ(parts("ppt/tags/"), 2);
  EXPECT_GE(parts("ppt/charts/"), 1);
  shape("Picture").Delete();
  EXPECT_EQ(parts("ppt/tags/"), 1);
  EXPECT_EQ(parts("ppt/media/"), 1) << "the other one shows it too";
  shape("Second").Delete();
  EXPECT_EQ(parts("ppt/tags/"), 0);
  EXPECT_EQ(parts("ppt/media/"), 0);
  shape("Group").GroupItems().Item(1).Delete();
  EXPECT_EQ(parts("ppt/charts/"), 0);
  EXPECT_EQ(parts("ppt/embeddings/"), 0);
}

TEST_F(ShapeTest, ADeletedShapeLeavesNothingBehind) {
  auto slide = deck.slide();
  const int id = slide.shape("rect", 0, 0, 9, 9).named("A").id();
  slide.shape("rect", 0, 0, 9, 9).named("B");
  const std::string spid = std::to_string(id);
  slide.xml(
      R"(<p:cxnSp><p:nvCxnSpPr><p:cNvPr id="50" name="C"/><p:cNvCxnSpPr><a:stCxn id=")" + spid +
      R"(" idx="1"/><a:endCxn id="99" idx="1"/></p:cNvCxnSpPr><p:nvPr/></p:nvCxnSpPr><p:spPr/></p:cxnSp>)");
  open();
  const host::Shape a = shape("A");
  const host::TextRange text = a.TextFrame().TextRange();
  shape("B").Select();
  a.Select(false);
  a.Delete();
  EXPECT_EQ(selection().ShapeRange().Count(), 1);
  EXPECT_EQ(errorOf([&] { a.Left(); }), invalidRequest);
  EXPECT_EQ(errorOf([&] { a.Delete(); }), invalidRequest);
  EXPECT_EQ(errorOf([&] { text.Text("x"); }), invalidRequest);
  EXPECT_EQ(count(slideXml(), "stCxn"), 0);
  EXPECT_EQ(count(slideXml(), "endCxn"), 1);

  const host::Shape b = shape("B");
  const host::ShapeRange all = range();
  presentation.Slides().Item(1).Delete();
  EXPECT_EQ(errorOf([&] { b.Name(); }), invalidRequest);
  EXPECT_EQ(errorOf([&] { all.Delete(); }), invalidRequest);
}

TEST_F(ShapeTest, ADeletedShapeTakesItsAnimationsAlong) {
  auto slide = deck.slide();
  slide.shape("rect", 0, 0, 9, 9).withId(7).named("A");
  slide.shape("rect", 0, 0, 9, 9).withId(8).named("B");
  open();
  const auto effect = [](const std::string& id) {
    return "<p:par><p:cTn fill=\"hold\"><p:childTnLst><p:par><p:cTn presetID=\"1\" "
           "presetClass=\"entr\"><p:childTnLst>"
           "<p:set><p:cBhvr><p:cTn/><p:tgtEl><p:spTgt spid=\"" +
           id +
           "\"/></p:tgtEl></p:cBhvr></p:set></p:childTnLst></p:cTn></p:par></p:childTnLst></p:cTn></p:par>";
  };
  const std::string timing =
      "<p:timing><p:tnLst><p:par><p:cTn nodeType=\"tmRoot\"><p:childTnLst><p:seq><p:cTn nodeType=\"mainSeq\">"
      "<p:childTnLst>" +
      effect("7") + effect("8") +
      "</p:childTnLst></p:cTn></p:seq></p:childTnLst></p:cTn></p:par></p:tnLst><p:bldLst><p:bldP spid=\"7\" "
      "grpId=\"0\"/></p:bldLst></p:timing>";
  host->state()->documents.front()->slide(256).part->root().append_buffer(timing.data(), timing.size());
  shape("A").Delete();
  EXPECT_EQ(count(slideXml(), "spid"), 1);
  EXPECT_EQ(count(slideXml(), "presetID"), 1);
  EXPECT_EQ(count(slideXml(), "bldLst"), 0);
  shape("B").Delete();
  EXPECT_EQ(count(slideXml(), "p:timing"), 0);
}

TEST_F(ShapeTest, SelectsInOrderAndOnlyInView) {
  auto slide = deck.slide();
  for (const char* name : {"a", "b", "c"}) slide.shape("rect", 0, 0, 9, 9).named(name);
  deck.slide().shape("rect", 0, 0, 9, 9).named("elsewhere");
  open();
  shape("c").Select();
  shape("a").Select(false);
  shape("c").Select(false);
  ASSERT_EQ(selection().ShapeRange().Count(), 2);
  EXPECT_EQ(selection().ShapeRange().Item(1).Name(), "c");
  EXPECT_EQ(selection().ShapeRange().Item(2).Name(), "a");
  EXPECT_EQ(errorOf([&] { shapes(2).Item(1).Select(); }), invalidRequest);
  shape("b").TextFrame().TextRange().Text("some text");
  shape("b").TextFrame().TextRange().Characters(3, 4).Select();
  EXPECT_EQ(selection().Type(), host::ppSelectionText);
  EXPECT_EQ(selection().TextRange().Text(), "me t");
  EXPECT_EQ(selection().ShapeRange().Item(1).Name(), "b");
}

TEST_F(ShapeTest, ARangeReadsTheCommonValueAndWritesToAll) {
  auto slide = deck.slide();
  slide.shape("rect", 10, 20, 30, 40).text("x");
  slide.shape("ellipse", 10, 50, 30, 40).text("y").noWrap();
  slide.shape("rect", 10, 50, 30, 40);
  open();
  EXPECT_EQ(get(range(), "Left"), host::Value(10.0f));
  EXPECT_EQ(get(range(), "Top").toInt(), host::mixed);
  EXPECT_EQ(range().Type(), host::msoAutoShape);
  EXPECT_EQ(get(range(), "AutoShapeType").toInt(), host::msoShapeMixed);
  EXPECT_EQ(range().TextFrame().WordWrap(), host::msoTriStateMixed);
  range().TextFrame().WordWrap(true);
  EXPECT_EQ(range().TextFrame().WordWrap(), host::msoTrue);
  EXPECT_EQ(get(range().TextFrame().TextRange(), "Text"), host::Value(""));
  host::putByName(range().object(), "Top", host::Value(1.5));
  EXPECT_EQ(get(range(), "Top"), host::Value(1.5f));
  range().Select();
  EXPECT_EQ(selection().ShapeRange().Count(), 3);
  range().Delete();
  EXPECT_EQ(shapes().Count(), 0);
  EXPECT_EQ(selection().Type(), host::ppSelectionNone);
  EXPECT_EQ(errorOf([&] { range().Type(); }), invalidRequest);
}

TEST_F(ShapeTest, MakesNewShapes) {
  deck.slide().shape("rect", 0, 0, 9, 9).withId(11);
  open();
  const host::Shape box = shapes().AddShape(host::msoShapeRoundedRectangle, 1, 2, 3.5f, 4);
  EXPECT_EQ(box.Name(), "Rounded Rectangle 12");
  EXPECT_EQ(box.Id(), 12);
  EXPECT_EQ(box.ZOrderPosition(), 2);
  EXPECT_EQ(box.TextFrame().VerticalAnchor(), host::msoAnchorMiddle);
  EXPECT_EQ(errorOf([&] { shapes().AddShape(138, 0, 0, 1, 1); }), outOfRange);
  EXPECT_EQ(errorOf([&] { shapes().AddShape(1, 0, 0, -1, 1); }), outOfRange);
  EXPECT_EQ(shapes().Count(), 2);
  const host::Value arguments[] = {1, 10.f, 20.f, 100.f, 30.f};
  const host::Shape text(host::callByName(shapes().object(), "AddTextbox", arguments).toObject());
  EXPECT_EQ(text.Name(), "TextBox 13");
  text.TextFrame().TextRange().Text("Hi");
  reopen();
  EXPECT_EQ(shape("Rounded Rectangle 12").Width(), 3.5f);
  EXPECT_EQ(shape("TextBox 13").Type(), host::msoTextBox);
  EXPECT_EQ(shape("TextBox 13").TextFrame().AutoSize(), host::ppAutoSizeShapeToFitText);
  EXPECT_TRUE(packageFaults(readZipFile(folder.path("saved1.pptx"))).empty());
}

TEST_F(ShapeTest, CountsPlaceholdersWithTheTitleFirst) {
  auto slide = deck.slide("obj");
  slide.placeholder("", 1).named("Body");
  slide.shape("rect", 0, 0, 9, 9);
  slide.placeholder("title").named("Title");
  open();
  ASSERT_EQ(shapes().Placeholders().Count(), 2);
  EXPECT_EQ(shapes().Placeholders().Item(1).Name(), "Title");
  EXPECT_EQ(get(shapes(), "HasTitle").toInt(), -1);
}

TEST_F(ShapeTest, KeepsNamesDescriptionsVisibilityAndTags) {
  auto slide = deck.slide();
  slide.group(0, 0, 9, 9).named("G").children().shape("rect", 0, 0, 9, 9).named("A");
  open();
  const host::Shape a = shape("G").GroupItems().Item(1);
  a.Name("Ä\x01 <&>\"");
  a.AlternativeText("two\nlines");
  a.Visible(false);
  a.Tags().Add("zorp_x", "1");
  reopen();
  const host::Shape b = shape("G").GroupItems().Item(1);
  EXPECT_EQ(b.Name(), "Ä <&>\"");
  EXPECT_EQ(b.AlternativeText(), "two\nlines");
  EXPECT_EQ(b.Visible(), 0);
  EXPECT_EQ(b.Tags().Item("ZORP_X"), "1");
}

/// Reads and writes every shape of every deck that lies there.
TEST_F(ShapeTest, WalksThroughDecksFromElsewhere) {
  if (!std::filesystem::exists(TEST_SHARED_DECKS)) GTEST_SKIP();
  const std::function<void(const host::Shape&)> walk = [&](const host::Shape& one) {
    const float left = one.Left(), top = one.Top(), width = one.Width(), height = one.Height();
    one.Left(left + 1), one.Top(top + 1);
    EXPECT_NEAR(one.Left(), left + 1, 0.001 + std::abs(left) * 1e-6) << one.Name();
    EXPECT_NEAR(one.Top(), top + 1, 0.001 + std::abs(top) * 1e-6) << one.Name();
    EXPECT_NEAR(one.Width(), width, 0.001) << one.Name();
    EXPECT_NEAR(one.Height(), height, 0.001) << one.Name();
    for (int i = 1; i <= one.Adjustments().Count(); ++i) {
      const float value = one.Adjustments().Item(i);
      one.Adjustments().Item(i, value + 0.25f);
      EXPECT_NEAR(one.Adjustments().Item(i), value + 0.25f, 0.0001) << one.Name();
    }
    if (one.HasTextFrame()) {
      const host::TextRange text = one.TextFrame().TextRange();
      const std::string before = text.Text();
      EXPECT_EQ(base::length16(before), text.Length());
      text.Text(before + "\rmore");
      EXPECT_EQ(one.TextFrame().TextRange().Text(), before + "\rmore");
    }
    if (one.Type() == host::msoGroup) {
      for (int i = 1; i <= one.GroupItems().Count(); ++i) walk(one.GroupItems().Item(i));
    }
  };
  for (const auto& entry : std::filesystem::directory_iterator(TEST_SHARED_DECKS)) {
    try {
      openFile(entry.path().string());
      for (int i = 1; i <= presentation.Slides().Count(); ++i) {
        for (int j = 1; j <= shapes(i).Count(); ++j) walk(shapes(i).Item(j));
      }
    } catch (const base::Error& error) {
      EXPECT_EQ(error.number(), base::errors::unspecific) << entry.path() << error.description();
    }
  }
}

TEST_F(ShapeTest, ALostPlaceholderComesBackWhereTheLayoutHasIt) {
  auto slide = deck.slide("titleOnly");
  slide.placeholder("title").named("T").text("x");
  open();
  const auto add = [&] { return shapes().AddPlaceholder(host::ppPlaceholderTitle); };
  EXPECT_EQ(errorOf(add), base::errors::invalidRequest);
  const float left = shape("T").Left();
  shape("T").Delete();
  EXPECT_EQ(shapes().Placeholders().Count(), 0);
  EXPECT_EQ(add().Left(), left);
  EXPECT_EQ(errorOf(add), base::errors::invalidRequest);
  EXPECT_EQ(errorOf([&] { shapes().AddPlaceholder(host::ppPlaceholderBody); }), base::errors::invalidRequest);
  reopen();
  ASSERT_EQ(shapes().Placeholders().Count(), 1);
  EXPECT_EQ(shapes().Item(1).PlaceholderFormat().Type(), 1);
  shapes().Item(1).Delete();
  EXPECT_EQ(shapes().AddPlaceholder(host::ppPlaceholderTitle, 10, 20, 300, -1).Width(), 300);
}

}  // namespace
}  // namespace vellumark::test
