// What shapes look like: fills, lines, texts and pictures, where they lie and in which colours.

#include "deck/drawing/shape_drawing.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "deck/model/shape_fixture.h"

namespace vellumark::deck {
namespace {

using platform::Drawing;
using platform::Path;
using Texts = std::vector<std::string>;

/// Commands as texts: "fill 2F5D8C 10,20 100 x 50", by the boxes of their paths.
class Teller {
 public:
  std::string operator()(const Drawing::Fill& fill) const {
    const auto& brush = fill.brush;
    if (brush.stops.empty()) return "fill " + hex(brush.color) + box(fill.path);
    std::string text = brush.kind == platform::Brush::Kind::linear ? "linear" : "radial";
    for (const platform::GradientStop& stop : brush.stops) text += " " + hex(stop.color);
    return text + box(fill.path);
  }
  std::string operator()(const Drawing::Stroke& stroke) const {
    return "line " + hex(stroke.pen.color) + " " + number(stroke.pen.width) +
           (stroke.pen.dashes.empty() ? "" : " dashed") + box(stroke.path);
  }
  std::string operator()(const Drawing::Picture& picture) const {
    const platform::DrawPoint a = picture.map({0, 0}), b = picture.map({1, 1});
    return "picture " + number(a.x) + "," + number(a.y) + " to " + number(b.x) + "," + number(b.y) +
           (picture.bytes && picture.bytes->substr(1, 3) == "PNG" ? "" : " without bytes");
  }

 private:
  static std::string hex(platform::Argb color) {
    char text[9];
    std::snprintf(text, sizeof text, "%08X", color);
    return text[0] == 'F' && text[1] == 'F' ? text + 2 : text;
  }
  static std::string number(double value) {
    std::string text = std::to_string(std::round(value * 10) / 10);
    text.erase(text.find('.') + 2);
    if (text.ends_with(".0")) text.resize(text.size() - 2);
    return text == "-0" ? "0" : text;
  }
  static std::string box(const Path& path) {
    const auto [left, top, right, bottom] = path.bounds();
    return " " + number(left) + "," + number(top) + " " + number(right - left) + " x " + number(bottom - top);
  }
};

class ShapeDrawing : public test::ShapeTest {
 protected:
  Drawing draw() {
    Document& document = *host->state()->documents.front();
    return drawShapes(shapesOf(document.slide(document.slides().front().id)));
  }
  Texts told() {
    const Drawing drawing = draw();
    Texts texts;
    for (const Drawing::Command& command : drawing.commands) texts.push_back(std::visit(Teller(), command));
    return texts;
  }
};

TEST_F(ShapeDrawing, FillsAndLinesLieWhereTheShapesDo) {
  auto slide = deck.slide();
  slide.shape("rect", 10, 20, 100, 50).fill("FF0000").noLine();
  slide.shape("rect", 10, 20, 100, 50).fill("accent2").line("0000FF", 3).dash("dash").rotate(90);
  slide.shape("rect", 0, 0, 5, 5).fill("00FF00").hidden();
  slide.connector("line", 300, 200, 200, 100).line("accent1", 2);
  slide.textBox(5, 5, 10, 10);
  auto group = slide.group(400, 0, 100, 100).childSpace(0, 0, 10, 10);
  group.children().shape("rect", 5, 5, 5, 5).fill("123456").noLine();
  open();
  EXPECT_EQ(told(), (Texts{"fill FF0000 10,20 100 x 50", "fill C8553D 35,-5 50 x 100",
                           "line 0000FF 3 dashed 35,-5 50 x 100", "line 2F5D8C 2 200,100 100 x 100",
                           "fill 123456 450,50 50 x 50"}));
  const Drawing drawing = draw();
  EXPECT_NEAR(drawing.left, 5, 0.01) << "the empty box counts, the hidden shape doesn't";
  EXPECT_NEAR(drawing.top, -6.5, 0.01) << "half the line's width is outside";
  EXPECT_NEAR(drawing.left + drawing.width, 500, 0.01);
  EXPECT_NEAR(drawing.top + drawing.height, 201, 0.01);
}

TEST_F(ShapeDrawing, ColoursComeFromStyleThemeAndGroup) {
  const auto shape = [](const std::string& properties, const std::string& style = {}) {
    return "<p:sp><p:nvSpPr><p:cNvPr id='50' "
           "name='S'/><p:cNvSpPr/><p:nvPr/></p:nvSpPr><p:spPr><a:xfrm><a:off "
           "x='0' y='0'/><a:ext cx='1270000' cy='635000'/></a:xfrm><a:prstGeom prst='rect'/>" +
           properties + "</p:spPr>" + style + "</p:sp>";
  };
  const std::string style =
      "<p:style><a:lnRef idx='2'><a:schemeClr val='accent1'/></a:lnRef><a:fillRef idx='1'><a:schemeClr "
      "val='accent3'/></a:fillRef><a:effectRef idx='0'/><a:fontRef idx='minor'/></p:style>";
  const struct {
    std::string xml;
    Texts told;
  } cases[] = {
      {shape("", style), {"fill 5B8E7D 0,0 100 x 50", "line 2F5D8C 1 0,0 100 x 50"}},
      {shape("<a:noFill/><a:ln><a:noFill/></a:ln>", style), {}},
      {"<p:sp><p:nvSpPr><p:cNvPr id='50' name='S'/><p:cNvSpPr/><p:nvPr><p:ph "
       "type='title'/></p:nvPr></p:nvSpPr><p:spPr/>" +
           style + "</p:sp>",
       {"fill 5B8E7D 48,28 864 x 78", "line 2F5D8C 1 48,28 864 x 78"}},
      {shape("<a:solidFill><a:srgbClr val='102030'><a:alpha val='50000'/></a:srgbClr></a:solidFill>"),
       {"fill 80102030 0,0 100 x 50"}},
      {shape(
           "<a:gradFill><a:gsLst><a:gs pos='100000'><a:srgbClr val='0000FF'/></a:gs><a:gs pos='0'><a:srgbClr "
           "val='FF0000'/></a:gs></a:gsLst><a:lin ang='0'/></a:gradFill>"),
       {"linear FF0000 0000FF 0,0 100 x 50"}},
      {shape("<a:gradFill/>"), {}},
      {shape("<a:pattFill prst='pct50'><a:fgClr><a:srgbClr val='000000'/></a:fgClr><a:bgClr><a:srgbClr "
             "val='FFFFFF'/></a:bgClr></a:pattFill>"),
       {"fill 808080 0,0 100 x 50"}},
      {"<p:grpSp><p:nvGrpSpPr><p:cNvPr id='9' name='G'/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr><p:grpSpPr>"
       "<a:solidFill><a:srgbClr val='ABCDEF'/></a:solidFill></p:grpSpPr>" +
           shape("<a:grpFill/>") + "</p:grpSp>",
       {"fill ABCDEF 0,0 100 x 50"}},
      {shape("<a:grpFill/>"), {}},
      {shape("<a:ln w='25400'><a:solidFill><a:schemeClr val='tx1'/></a:solidFill></a:ln>"),
       {"line 000000 2 0,0 100 x 50"}},
      {shape("<a:blipFill><a:blip r:embed='rId99'/></a:blipFill>"), {}},
  };
  for (const auto& c : cases) {
    deck = decks::DeckBuilder();
    deck.master().find("title").frame(48, 28, 864, 78).noFill().noLine();
    deck.slide("titleOnly").xml(c.xml);
    open();
    EXPECT_EQ(told(), c.told) << c.xml;
  }
}

TEST_F(ShapeDrawing, LettersStandInTheirBoxInTheirColour) {
  auto slide = deck.slide();
  const decks::TextStyle style{.size = 20, .color = "C8553D", .align = "r", .bullet = "none"};
  slide.textBox(100, 100, 200, 40, "Hamburg", style).insets(0, 0, 0, 0).anchor("b").noWrap();
  open();
  Texts letters = told();
  ASSERT_EQ(letters.size(), 1U);
  EXPECT_TRUE(letters[0].starts_with("fill C8553D ")) << letters[0];
  const Drawing drawing = draw();
  const auto& path = std::get<Drawing::Fill>(drawing.commands[0]).path;
  EXPECT_NEAR(path.bounds().right, 300, 2) << "flush right";
  EXPECT_NEAR(path.bounds().bottom, 140, 2.5) << "the g reaches to the bottom of the line";

  deck = decks::DeckBuilder();
  auto list = deck.slide().textBox(0, 0, 300, 200, "", {});
  list.text("one", {.size = 20, .bullet = "•"})
      .text("two", {.size = 20})
      .run(" three", {.size = 20, .bold = true});
  open();
  EXPECT_EQ(told().size(), 4U) << "a bullet and three stretches";
}

TEST_F(ShapeDrawing, TextIsTurnedWithItsShapeButNeverMirrored) {
  const auto box = [&](const std::function<void(decks::ShapeBuilder)>& change) {
    deck = decks::DeckBuilder();
    change(deck.slide()
               .shape("rect", 100, 100, 200, 200)
               .noFill()
               .noLine()
               .insets(0, 0, 0, 0)
               .anchor("t")
               .text("mm", {.size = 20, .align = "l", .bullet = "none"}));
    open();
    const Drawing drawing = draw();
    return std::get<Drawing::Fill>(drawing.commands.at(0)).path.segments().front().points[0];
  };
  const auto plain = box([](const decks::ShapeBuilder&) {});
  EXPECT_LT(plain.x, 140);
  EXPECT_LT(plain.y, 130);
  const auto mirrored = box([](const decks::ShapeBuilder& shape) { shape.flipHorizontally(); });
  EXPECT_NEAR(mirrored.x, plain.x, 0.01);
  const auto down = box([](const decks::ShapeBuilder& shape) { shape.flipVertically(); });
  EXPECT_NEAR(down.x, 400 - plain.x, 0.01);
  EXPECT_NEAR(down.y, 400 - plain.y, 0.01);
  const auto turned = box([](const decks::ShapeBuilder& shape) { shape.rotate(90); });
  EXPECT_NEAR(turned.x, 400 - plain.y, 0.01);
  EXPECT_NEAR(turned.y, plain.x, 0.01);
}

TEST_F(ShapeDrawing, HeadsStandAtTheEndsOfOpenLines) {
  deck.slide().connector("straightConnector1", 0, 100, 100, 100).line("000000", 4).arrowHead();
  open();
  EXPECT_EQ(told(), (Texts{"fill 000000 88,94 12 x 12", "line 000000 4 0,100 90.4 x 0"}));
}

TEST_F(ShapeDrawing, PicturesTablesAndCharts) {
  auto slide = deck.slide();
  slide.picture(10, 20, 100, 50).rotate(180);
  slide.table(200, 100, 100, 40, {{"", ""}, {"", ""}})
      .tableStyle("{11111111-2222-3333-4444-555555555555}", {"firstRow"})
      .cell(1, 1, {}, "ABCDEF")
      .rule(0, "FF0000", 2);
  slide.chart(400, 100, 100, 100, {{"a", 1}});
  deck.tableStyle(
      "{11111111-2222-3333-4444-555555555555}",
      "<a:wholeTbl><a:tcTxStyle/><a:tcStyle><a:tcBdr><a:insideV><a:ln w='12700'><a:solidFill><a:srgbClr "
      "val='00FF00'/></a:solidFill></a:ln></a:insideV></a:tcBdr></a:tcStyle></a:wholeTbl>"
      "<a:firstRow><a:tcTxStyle/><a:tcStyle><a:tcBdr/><a:fill><a:solidFill><a:schemeClr "
      "val='accent1'/></a:solidFill></a:fill></a:tcStyle></a:firstRow>");
  open();
  Texts all = told();
  ASSERT_GE(all.size(), 8U);
  EXPECT_EQ(all.front(), "picture 110,70 to 10,20");
  const auto count = [&](const std::string& text) { return std::ranges::count(all, text); };
  EXPECT_EQ(count("fill 2F5D8C 200,100 50 x 20"), 1) << "of the style, for the first row";
  EXPECT_EQ(count("fill ABCDEF 250,120 50 x 20"), 1) << "of the cell";
  EXPECT_EQ(count("line 00FF00 1 250,100 0 x 20"), 2) << "between cells, from both";
  EXPECT_EQ(count("line 00FF00 1 200,100 0 x 20"), 0) << "not at the edge";
  EXPECT_GE(count("line FF0000 2 200,120 50 x 0"), 1);
  EXPECT_EQ(count("fill F2F2F2 400,100 100 x 100"), 1) << "the sign for a chart";
}

TEST_F(ShapeDrawing, WhatIsDeletedIsNotDrawn) {
  deck.slide().shape("rect", 10, 20, 100, 50).fill("FF0000").noLine().named("A");
  open();
  Document& document = *host->state()->documents.front();
  const std::vector<ShapeKey> keys = shapesOf(document.slide(document.slides().front().id));
  shape("A").Delete();
  const Drawing drawing = drawShapes(keys);
  EXPECT_TRUE(drawing.commands.empty());
  EXPECT_EQ(drawing.width, 0);
}

}  // namespace
}  // namespace vellumark::deck
