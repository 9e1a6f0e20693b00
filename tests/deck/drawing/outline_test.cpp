// The forms of presets against their definitions, where those are there, and what holds for every form.

#include "deck/drawing/outline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <string>
#include <tuple>

#include "deck/model/autoshape_types.h"
#include "deck/model/preset_adjustments.h"
#include "deck/model/shape_node.h"

namespace vellumark::deck {
namespace {

using Point = platform::DrawPoint;
using Guides = std::vector<std::int32_t>;

constexpr const char* definitions = TEST_SOURCE_DIR "/../shared/ooxml/presetShapeDefinitions.xml";
constexpr double tolerance = 0.02;  // points

struct Edge {
  Point from, to;
};

double distance(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }

double distance(Point p, const Edge& edge) {
  const double dx = edge.to.x - edge.from.x, dy = edge.to.y - edge.from.y, length = dx * dx + dy * dy;
  const double along =
      length == 0 ? 0 : std::clamp(((p.x - edge.from.x) * dx + (p.y - edge.from.y) * dy) / length, 0.0, 1.0);
  return distance(p, Point{edge.from.x + along * dx, edge.from.y + along * dy});
}

Point onCurve(Point a, Point b, Point c, Point d, double t) {
  const double s = 1 - t, k0 = s * s * s, k1 = 3 * s * s * t, k2 = 3 * s * t * t, k3 = t * t * t;
  return {k0 * a.x + k1 * b.x + k2 * c.x + k3 * d.x, k0 * a.y + k1 * b.y + k2 * c.y + k3 * d.y};
}

/// What of a path can be seen, as short straight edges. Areas are closed.
std::vector<Edge> edgesOf(const OutlinePath& path) {
  constexpr int pieces = 48;
  std::vector<Edge> edges;
  Point here, start;
  const auto lineTo = [&](Point to) {
    if (distance(here, to) > 1e-9) edges.push_back({here, to});
    here = to;
  };
  const auto finish = [&] {
    if (!path.stroke) lineTo(start);
  };
  for (const auto& [step, points] : path.path.segments()) {
    switch (step) {
      case platform::Path::Step::move:
        finish();
        here = start = points[0];
        break;
      case platform::Path::Step::line:
        lineTo(points[0]);
        break;
      case platform::Path::Step::curve: {
        const Point from = here;
        for (int i = 1; i <= pieces; ++i) {
          lineTo(onCurve(from, points[0], points[1], points[2], static_cast<double>(i) / pieces));
        }
        break;
      }
      case platform::Path::Step::close:
        lineTo(start);
        break;
    }
  }
  finish();
  return edges;
}

/// The first place found of one drawing that the other one lacks; its distance, or 0 where there is none.
double stray(const std::vector<Edge>& edges, const std::vector<Edge>& others) {
  std::size_t last = 0;  // near which the next place is looked for first
  const auto nearest = [&](Point point) {
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < others.size(); ++i) {
      const std::size_t other = (last + i) % others.size();
      least = std::min(least, distance(point, others[other]));
      if (least > tolerance) continue;
      last = other;
      return 0.0;
    }
    return least;
  };
  for (const Edge& edge : edges) {
    const int samples = static_cast<int>(std::min(distance(edge.from, edge.to) / 4, 100.0)) + 1;
    for (int i = 0; i <= samples; ++i) {
      const double share = static_cast<double>(i) / samples;
      const Point point{edge.from.x + (edge.to.x - edge.from.x) * share,
                        edge.from.y + (edge.to.y - edge.from.y) * share};
      if (const double off = nearest(point); off > 0) return off;
    }
  }
  return 0;
}

double lengthOf(const std::vector<Edge>& edges) {
  double length = 0;
  for (const Edge& edge : edges) length += distance(edge.from, edge.to);
  return length;
}

/// What differs; empty where two outlines show the same.
std::string difference(const Outline& expected, const Outline& drawn) {
  if (expected.size() != drawn.size()) {
    return std::to_string(drawn.size()) + " paths instead of " + std::to_string(expected.size());
  }
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const std::string path = "path " + std::to_string(i) + ": ";
    if (expected[i].fill != drawn[i].fill) return path + "fill";
    if (expected[i].stroke != drawn[i].stroke) return path + "stroke";
    const std::vector<Edge> before = edgesOf(expected[i]), after = edgesOf(drawn[i]);
    if (before.empty() != after.empty()) return path + "nothing drawn";
    if (const double off = stray(before, after); off > 0)
      return path + "lacks a place by " + std::to_string(off);
    if (const double off = stray(after, before); off > 0)
      return path + "has a place off by " + std::to_string(off);
    const double longer = lengthOf(after) - lengthOf(before);  // a line drawn twice, or once too few
    if (std::abs(longer) > 0.5) return path + "is longer by " + std::to_string(longer);
  }
  return {};
}

/// The values that each preset is drawn with: as it comes, and changed a little.
std::vector<Guides> variations(std::span<const PresetGuide> guides) {
  Guides usual, less, more;
  for (const PresetGuide& guide : guides) {
    const bool fixed = guide.kind == GuideKind::factor;
    usual.push_back(guide.value);
    less.push_back(fixed ? guide.value : guide.value / 5 * 3 + 700);
    more.push_back(fixed ? guide.value : guide.value / 5 * 6 - 300);
  }
  return {usual, less, more};
}

/// Each length beyond its limits, to both sides.
std::vector<Guides> extremes(std::span<const PresetGuide> guides) {
  std::vector<Guides> all;
  for (std::size_t i = 0; i < guides.size(); ++i) {
    if (guides[i].kind != GuideKind::ratio) continue;
    for (const std::int32_t value : {-30'011, 130'011}) {
      all.push_back(variations(guides).front());
      all.back()[i] = value;
    }
  }
  return all;
}

/// Their definitions say nothing sensible beyond some limits: places off the ellipse that they go on along,
/// or a head of no size.
bool lacksLimits(std::string_view preset) {
  return preset == "wedgeRoundRectCallout" || preset == "curvedDownArrow" || preset == "curvedUpArrow" ||
         preset.ends_with("ircularArrow");
}

std::string said(std::string_view preset, const Guides& guides, double width, double height) {
  std::string text = std::string(preset) + ' ' + std::to_string(width) + " x " + std::to_string(height);
  for (const std::int32_t guide : guides) text += ' ' + std::to_string(guide);
  return text;
}

/// A definition has what an a:custGeom has, and the values of its guides in a:avLst.
void setGuides(pugi::xml_node definition, const Guides& guides) {
  std::size_t next = 0;
  for (pugi::xml_node guide : definition.child("avLst").children()) {
    if (next < guides.size()) guide.attribute("fmla") = ("val " + std::to_string(guides[next++])).c_str();
  }
}

void expectAsDefined(pugi::xml_node definition, const Guides& guides, double width, double height) {
  const std::string_view preset = localName(definition);
  setGuides(definition, guides);
  const Outline expected = customOutline(definition, width, height);
  EXPECT_EQ(difference(expected, presetOutline(preset, width, height, guides)), "")
      << said(preset, guides, width, height);
}

TEST(OutlineTest, PresetsAreDrawnAsTheyAreDefined) {
  pugi::xml_document document;
  if (!std::filesystem::exists(definitions)) GTEST_SKIP() << "no " << definitions;
  ASSERT_TRUE(document.load_file(definitions));
  int presets = 0;
  for (pugi::xml_node definition : document.document_element().children()) {
    const std::span<const PresetGuide> guides = presetGuides(localName(definition));
    for (const Guides& values : variations(guides)) {
      expectAsDefined(definition, values, 240, 100);
      expectAsDefined(definition, values, 90, 210);
      expectAsDefined(definition, values, 144, 144);
    }
    if (!lacksLimits(localName(definition))) {
      for (const Guides& values : extremes(guides)) expectAsDefined(definition, values, 100, 160);
    }
    ++presets;
  }
  EXPECT_EQ(presets, 187);
}

/// The area inside the first path, with what goes the other way around subtracted.
double areaOf(const Outline& outline) {
  double twice = 0;
  for (const Edge& edge : edgesOf(outline.at(0))) twice += edge.from.x * edge.to.y - edge.to.x * edge.from.y;
  return std::abs(twice) / 2;
}

Guides usualGuides(std::string_view preset) { return variations(presetGuides(preset)).front(); }

Outline usualOutline(std::string_view preset, double width, double height) {
  return presetOutline(preset, width, height, usualGuides(preset));
}

TEST(OutlineTest, FormsHaveTheirAreas) {
  constexpr double pi = 3.14159265;
  constexpr struct {
    const char* preset;
    double area;  ///< in a frame of 200 x 100
  } forms[] = {
      {"rect", 20'000},
      {"noSuchPreset", 20'000},
      {"roundRect", 20'000 - (4 - pi) * 16.667 * 16.667},
      {"snip1Rect", 20'000 - 16.667 * 16.667 / 2},
      {"ellipse", pi * 100 * 50},
      {"triangle", 10'000},
      {"rtTriangle", 10'000},
      {"diamond", 10'000},
      {"parallelogram", 17'500},
      {"trapezoid", 17'500},
      {"homePlate", 17'500},
      {"rightArrow", 150 * 50 + 50 * 100 / 2},
      {"upArrow", 100 * 50 + 200 * 50 / 2},
      {"pie", pi * 100 * 50 * 3 / 4},
      {"plus", 20'000 - 4 * 25 * 25},
      {"pieWedge", pi * 200 * 100 / 4},
      {"mathMinus", 200 * 0.7349 * 23.52},
  };
  for (const auto& [preset, area] : forms) {
    EXPECT_NEAR(areaOf(usualOutline(preset, 200, 100)), area, area * 0.001) << preset;
  }
}

TEST(OutlineTest, FormsLieTheirWay) {
  // An arrow has one place, its tip, in the middle of a side of the frame.
  for (const auto& [preset, x, y] : {std::tuple{"leftArrow", 0.0, 50.0},
                                     {"rightArrow", 200.0, 50.0},
                                     {"upArrow", 100.0, 0.0},
                                     {"downArrow", 100.0, 100.0}}) {
    const OutlinePath arrow = usualOutline(preset, 200, 100).at(0);
    const auto& steps = arrow.path.segments();
    EXPECT_EQ(std::ranges::count_if(
                  steps,
                  [&](const auto& step) {
                    return step.step != platform::Path::Step::close && step.points[0] == Point{x, y};
                  }),
              1)
        << preset;
  }
  const Outline line = usualOutline("straightConnector1", 200, 0);
  ASSERT_EQ(line.size(), 1U);
  EXPECT_EQ(line[0].fill, PathFill::none);
  const platform::Bounds box = line[0].path.bounds();
  EXPECT_NEAR(box.right - box.left, 200, 1e-5);
  EXPECT_NEAR(box.bottom - box.top, 0, 1e-5);
}

/// Every preset, by the types of shapes and the names of connectors.
std::vector<std::string> allPresets() {
  std::vector<std::string> presets{"line", "lineInv", "straightConnector1"};
  for (int i = 2; i <= 5; ++i) {
    presets.push_back("bentConnector" + std::to_string(i));
    presets.push_back("curvedConnector" + std::to_string(i));
  }
  for (std::int32_t type = 1; type < 250; ++type) {
    if (!presetOf(type).empty()) presets.emplace_back(presetOf(type));
  }
  return presets;
}

bool isSound(const Outline& outline) {
  std::size_t steps = 0;
  for (const OutlinePath& path : outline) {
    for (const auto& step : path.path.segments()) {
      if (!std::ranges::all_of(step.points,
                               [](Point p) { return std::abs(p.x) < 1e12 && std::abs(p.y) < 1e12; })) {
        return false;
      }
      ++steps;
    }
  }
  return steps < 200'000;
}

TEST(OutlineTest, PresetsStandAnyFrameAndGuides) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN(),
                   infinity = std::numeric_limits<double>::infinity();
  for (const std::string& preset : allPresets()) {
    const std::size_t usual = usualOutline(preset, 50, 50).size();
    EXPECT_GT(usual, 0U) << preset;
    for (const auto& [width, height] : {std::pair{0.0, 0.0},
                                        {0.0, 50.0},
                                        {50.0, 0.0},
                                        {-3.0, 7.0},
                                        {1e300, 1.0},
                                        {nan, infinity},
                                        {50.0, 50.0}}) {
      Guides guides = usualGuides(preset);
      EXPECT_TRUE(isSound(presetOutline(preset, width, height, guides))) << preset;
      EXPECT_TRUE(isSound(presetOutline(preset, width, height, {}))) << preset;
      for (const std::int32_t value :
           {std::numeric_limits<std::int32_t>::min(), 0, 100'000, std::numeric_limits<std::int32_t>::max()}) {
        std::ranges::fill(guides, value);
        const Outline outline = presetOutline(preset, width, height, guides);
        EXPECT_TRUE(isSound(outline) && outline.size() == usual) << preset << ' ' << value;
      }
    }
  }
}

}  // namespace
}  // namespace vellumark::deck
