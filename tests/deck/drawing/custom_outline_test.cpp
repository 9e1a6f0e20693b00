// Geometries that a file describes itself: their formulas, their paths, and what is broken in them.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "deck/drawing/guide_formulas.h"
#include "deck/drawing/outline.h"

namespace vellumark::deck {
namespace {

using Step = platform::Path::Step;

TEST(GuideFormulasTest, EachOperatorWorks) {
  constexpr struct {
    const char* formula;
    double value;
  } cases[] = {
      {"val 7", 7},
      {"val -7.5", -7.5},
      {"*/ 30 7 2", 105},
      {"+- 30 7 2", 35},
      {"+/ 30 7 2", 18.5},
      {"?: 1 7 2", 7},
      {"?: 0 7 2", 2},
      {"?: -1 7 2", 2},
      {"abs -3", 3},
      {"at2 10 10", 2'700'000},
      {"at2 -10 10", 8'100'000},
      {"at2 10 -10", -2'700'000},
      {"cat2 10 3 4", 6},
      {"sat2 10 3 4", 8},
      {"cos 10 3600000", 5},
      {"sin 10 1800000", 5},
      {"tan 10 2700000", 10},
      {"max 3 4", 4},
      {"min 3 4", 3},
      {"mod 2 3 6", 7},
      {"pin 2 1 6", 2},
      {"pin 2 3 6", 3},
      {"pin 2 9 6", 6},
      {"sqrt 49", 7},
      {"  +-\t30\n 7   2 ", 35},
      // names of the shape
      {"val w", 1200},
      {"val hc", 600},
      {"val vc", 300},
      {"val ssd8", 75},
      {"val wd32", 37.5},
      {"val lsd4", 300},
      {"val ls", 1200},
      {"val 3cd4", 16'200'000},
      {"+- r b t", 1800},
      // what can't be worked out
      {"*/ 1 1 0", 0},
      {"+/ 1 1 0", 0},
      {"*/ 0 1 0", 0},
      {"sqrt -4", 0},
      {"val nobody", 0},
      {"val 12x", 0},
      {"val nan", 0},
      {"val inf", 0},
      {"val 1e999", 0},
      {"val", 0},
      {"+- 5", 5},
      {"what 1 2 3", 0},
      {"", 0},
  };
  for (const auto& [formula, value] : cases) {
    GuideFormulas guides(1200, 600);
    guides.define("g", formula);
    EXPECT_NEAR(guides.value("g"), value, 1e-6) << formula;
  }
}

TEST(GuideFormulasTest, GuidesKnowThoseBeforeThem) {
  GuideFormulas guides(100, 100);
  guides.define("p", "val q");  // not there yet
  guides.define("q", "+- p 0 -3");
  guides.define("q", "+- q q 0");  // from its old value
  guides.define("2q", "*/ q 2 1");
  guides.define("self", "+- self 1 0");
  guides.define("w", "val 5");
  EXPECT_EQ(guides.value("p"), 0);
  EXPECT_EQ(guides.value("q"), 6);
  EXPECT_EQ(guides.value("2q"), 12);
  EXPECT_EQ(guides.value("self"), 1);
  EXPECT_EQ(guides.value("w"), 5);
}

TEST(GuideFormulasTest, NothingGrowsWithoutBound) {
  GuideFormulas guides(1e300, -1e300);
  guides.define("x", "val 99999999999999999999999999");
  for (int i = 0; i < 50'000; ++i) {
    guides.define("x", "*/ x x 1");
    guides.define("n" + std::to_string(i), "*/ x w h");
  }
  EXPECT_TRUE(std::isfinite(guides.value("x")));
  EXPECT_TRUE(std::isfinite(guides.value("n0")));
  EXPECT_EQ(guides.value("n49999"), 0);
}

Outline outlineOf(const std::string& inner, double width = 100, double height = 50) {
  pugi::xml_document document;
  EXPECT_TRUE(document.load_string(("<a:custGeom xmlns:a='a'>" + inner + "</a:custGeom>").c_str()));
  return customOutline(document.document_element(), width, height);
}

std::string point(const std::string& x, const std::string& y) {
  return "<a:pt x='" + x + "' y='" + y + "'/>";
}
std::string moveTo(const std::string& x, const std::string& y) {
  return "<a:moveTo>" + point(x, y) + "</a:moveTo>";
}
std::string lineTo(const std::string& x, const std::string& y) {
  return "<a:lnTo>" + point(x, y) + "</a:lnTo>";
}
std::string arcTo(const std::string& radius, const std::string& start, const std::string& sweep) {
  return "<a:arcTo wR='" + radius + "' hR='" + radius + "' stAng='" + start + "' swAng='" + sweep + "'/>";
}
std::string path(const std::string& inner, const std::string& attributes = {}) {
  return "<a:pathLst><a:path " + attributes + ">" + inner + "</a:path></a:pathLst>";
}

/// The places where the steps of the first path end.
std::vector<std::pair<double, double>> ends(const Outline& outline) {
  std::vector<std::pair<double, double>> places;
  if (outline.empty()) return places;
  for (const auto& [step, points] : outline[0].path.segments()) {
    const platform::DrawPoint end = points[step == Step::curve ? 2 : 0];
    if (step != Step::close)
      places.emplace_back(std::round(end.x * 100) / 100, std::round(end.y * 100) / 100);
  }
  return places;
}

using Places = std::vector<std::pair<double, double>>;

TEST(CustomOutlineTest, PathsAreStretchedIntoTheFrame) {
  const std::string lines = moveTo("0", "0") + lineTo("10", "0") + lineTo("10", "20") + "<a:close/>";
  EXPECT_EQ(ends(outlineOf(path(lines, "w='10' h='20'"))), (Places{{0, 0}, {100, 0}, {100, 50}}));
  EXPECT_EQ(ends(outlineOf(path(moveTo("12700", "0") + lineTo("r", "vc")))), (Places{{1, 0}, {100, 25}}));
  EXPECT_EQ(ends(outlineOf(path(lines, "w='-4' h='x'"))), (Places{{0, 0}, {0, 0}, {0, 0}}));
  EXPECT_EQ(ends(outlineOf("<a:avLst><a:gd name='adj' fmla='val 25000'/></a:avLst>"
                           "<a:gdLst><a:gd name='x' fmla='*/ w adj 100000'/></a:gdLst>" +
                           path(moveTo("x", "t") + lineTo("x", "b")))),
            (Places{{25, 0}, {25, 50}}));
}

TEST(CustomOutlineTest, AnglesOfArcsAreAsTheEyeSeesThem) {
  // An eighth of a turn on a flat ellipse, in the units of the path: it ends where x and y are the same.
  const std::string arc = "<a:arcTo wR='200' hR='100' stAng='0' swAng='2700000'/>";
  const double same = 1 / std::sqrt(1 / 200.0 / 200 + 1 / 100.0 / 100);
  const auto places = ends(outlineOf(path(moveTo("200", "0") + arc, "w='1000' h='1000'"), 1000, 1000));
  ASSERT_GE(places.size(), 2U);
  EXPECT_NEAR(places.back().first, same, 0.01);
  EXPECT_NEAR(places.back().second, same, 0.01);
  // More than a turn ends in the right place, and costs no more than two.
  const Outline wound =
      outlineOf(path(moveTo("200", "0") + arcTo("200", "0", "2147400000"), "w='1000' h='1000'"), 1000, 1000);
  EXPECT_LE(wound.at(0).path.segments().size(), 12U);
  EXPECT_EQ(ends(wound).back(), std::pair(-173.21, 100.0));
}

TEST(CustomOutlineTest, PathsTellHowTheyAreFilled) {
  const std::string lines = moveTo("0", "0") + lineTo("r", "b");
  const auto only = [&](const std::string& attributes) {
    const Outline outline = outlineOf(path(lines, attributes));
    return outline.empty() ? std::pair(PathFill::none, false) : std::pair(outline[0].fill, outline[0].stroke);
  };
  EXPECT_EQ(only(""), std::pair(PathFill::normal, true));
  EXPECT_EQ(only("fill='none'"), std::pair(PathFill::none, true));
  EXPECT_EQ(only("fill='darkenLess' stroke='0'"), std::pair(PathFill::darkenLess, false));
  EXPECT_EQ(only("fill='lighten' stroke='true'"), std::pair(PathFill::lighten, true));
  EXPECT_EQ(only("fill='odd' stroke='false'"), std::pair(PathFill::normal, false));
  EXPECT_TRUE(outlineOf(path(lines, "fill='none' stroke='false'")).empty());
}

TEST(CustomOutlineTest, WhatIsBrokenDrawsNothing) {
  EXPECT_TRUE(outlineOf("").empty());
  EXPECT_TRUE(customOutline({}, 10, 10).empty());
  EXPECT_TRUE(outlineOf(path(lineTo("r", "b") + "<a:close/>")).empty());
  EXPECT_EQ(ends(outlineOf(path(moveTo("r", "b") + "<a:lnTo/><a:quadBezTo>" + point("l", "t") +
                                "</a:quadBezTo><a:cubicBezTo/><a:odd/>" + lineTo("l", "t")))),
            (Places{{100, 50}, {0, 0}}));
  // After closing, a figure goes on from where it began.
  const Outline twice =
      outlineOf(path(moveTo("r", "b") + lineTo("l", "t") + "<a:close/><a:close/>" + lineTo("r", "t")));
  EXPECT_EQ(ends(twice), (Places{{100, 50}, {0, 0}, {100, 50}, {100, 0}}));
}

TEST(CustomOutlineTest, HostileFiguresStayFinite) {
  std::string guides = "<a:gdLst><a:gd/><a:gd name='big' fmla='val 9e99'/><a:gd fmla='*/ big big big'/>";
  for (int i = 0; i < 200; ++i) guides += "<a:gd name='big' fmla='*/ big big 1'/>";
  guides += "</a:gdLst>";
  std::string steps = moveTo("big", "-1e300");
  for (int i = 0; i < 20'000; ++i) {
    steps += arcTo("big", "big", "big") + arcTo("1000000000", "0", "10800000") + "<a:lnTo><a:pt/></a:lnTo>";
  }
  for (int i = 0; i < 60'000; ++i) steps += lineTo("big", "big");
  for (const auto& [width, height] : {std::pair{100.0, 50.0}, {0.0, 0.0}, {1e308, -1.0}}) {
    const Outline outline =
        outlineOf(guides + path(steps, "w='1' h='9999999999999999999999'"), width, height);
    ASSERT_EQ(outline.size(), 1U);
    EXPECT_LT(outline[0].path.segments().size(), 300'000U);
    EXPECT_TRUE(std::ranges::all_of(outline[0].path.segments(), [](const auto& segment) {
      return std::ranges::all_of(segment.points,
                                 [](const auto& p) { return std::abs(p.x) < 1e8 && std::abs(p.y) < 1e8; });
    }));
  }
}

}  // namespace
}  // namespace vellumark::deck
