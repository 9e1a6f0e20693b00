#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>

#include "deck/drawing/ellipse_angle.h"
#include "deck/drawing/guide_formulas.h"
#include "deck/drawing/outline.h"
#include "deck/model/shape_node.h"
#include "deck/model/units.h"

namespace vellumark::deck {
namespace {

/// What lies farther away than so many points can't be seen on any slide.
constexpr double farthest = 1e6;
/// Steps beyond so many are left out.
constexpr int mostSteps = 100'000;
constexpr double unitsPerDegree = 60'000;

double bounded(double value) { return std::clamp(value, -farthest, farthest); }

PathFill fillOf(pugi::xml_attribute attribute) {
  constexpr struct {
    std::string_view name;
    PathFill fill;
  } fills[] = {{"none", PathFill::none},
               {"lighten", PathFill::lighten},
               {"lightenLess", PathFill::lightenLess},
               {"darken", PathFill::darken},
               {"darkenLess", PathFill::darkenLess}};
  const auto* found = std::ranges::find(fills, std::string_view(attribute.value()),
                                        [](const auto& entry) { return entry.name; });
  return found == std::end(fills) ? PathFill::normal : found->fill;
}

bool isFalse(pugi::xml_attribute attribute) {
  const std::string_view value = attribute.value();
  return value == "0" || value == "false";
}

/// The steps of one a:path. They come in units of their own, of which the frame is `w` wide and `h` high, or
/// in EMU where a path doesn't say.
class PathReader {
 public:
  PathReader(const GuideFormulas& guides, pugi::xml_node node, double width, double height, int& steps)
      : guides_(guides),
        scaleX_(scaleOf(node.attribute("w"), width)),
        scaleY_(scaleOf(node.attribute("h"), height)) {
    for (pugi::xml_node step : node.children()) {
      if (++steps > mostSteps) return;
      read(step);
    }
  }

  const platform::Path& path() const { return path_; }

 private:
  static double scaleOf(pugi::xml_attribute extent, double size) {
    const auto units = static_cast<double>(wholeNumber(extent, 0, std::numeric_limits<std::int64_t>::max()));
    return units > 0 ? size / units : 1.0 / emuPerPoint;
  }

  double number(pugi::xml_node node, const char* name) const {
    return guides_.value(node.attribute(name).value());
  }
  platform::DrawPoint point(pugi::xml_node node) const {
    return {bounded(number(node, "x") * scaleX_), bounded(number(node, "y") * scaleY_)};
  }

  /// What lacks a point is left out, and so is what comes before the first a:moveTo.
  void read(pugi::xml_node node) {
    const std::string_view name = localName(node);
    platform::DrawPoint points[3];
    int count = 0;
    for (pugi::xml_node child : node.children()) {
      if (count < 3 && localName(child) == "pt") points[count++] = point(child);
    }
    if (name == "moveTo" && count >= 1) {
      path_.moveTo(points[0].x, points[0].y);
      open_ = started_ = true;
      return;
    }
    if (!started_) return;
    if (name == "close") {
      if (open_) path_.close();
      open_ = false;
      return;
    }
    if (name == "lnTo" && count >= 1) {
      goOn();
      path_.lineTo(points[0].x, points[0].y);
    } else if (name == "quadBezTo" && count >= 2) {
      goOn();
      path_.quadTo(points[0].x, points[0].y, points[1].x, points[1].y);
    } else if (name == "cubicBezTo" && count >= 3) {
      goOn();
      path_.curveTo(points[0].x, points[0].y, points[1].x, points[1].y, points[2].x, points[2].y);
    } else if (name == "arcTo") {
      goOn();
      arc(node);
    }
  }

  /// After a figure was closed, the next begins where that one did.
  void goOn() {
    if (!open_) path_.moveTo(path_.current().x, path_.current().y);
    open_ = true;
  }

  /// Angles hold in the units of the path, before it is stretched into the frame.
  void arc(pugi::xml_node node) {
    const double radiusX = std::max(0.0, number(node, "wR")), radiusY = std::max(0.0, number(node, "hR"));
    const double start = std::fmod(number(node, "stAng") / unitsPerDegree, 360);
    double sweep = number(node, "swAng") / unitsPerDegree;
    if (std::abs(sweep) > 360) sweep = std::copysign(360 + std::fmod(std::abs(sweep), 360), sweep);
    const double from = ellipseParameter(start, radiusX, radiusY);
    const double to = ellipseParameter(start + sweep, radiusX, radiusY);
    const platform::DrawPoint here = path_.current();
    path_.arcTo(bounded(radiusX * scaleX_), bounded(radiusY * scaleY_), from, to - from);
    const platform::DrawPoint end = path_.current();
    // A row of huge arcs leads nowhere.
    if (bounded(end.x) != end.x || bounded(end.y) != end.y) path_.moveTo(here.x, here.y);
  }

  const GuideFormulas& guides_;
  double scaleX_, scaleY_;
  platform::Path path_;
  bool started_ = false;  ///< there is a place to go on from
  bool open_ = false;     ///< the figure is not closed yet
};

}  // namespace

Outline customOutline(pugi::xml_node geometry, double width, double height) {
  const auto sane = [](double size) { return std::isfinite(size) ? std::clamp(size, 0.0, farthest) : 0; };
  width = sane(width);
  height = sane(height);
  GuideFormulas guides(width * emuPerPoint, height * emuPerPoint);
  for (const std::string_view list : {"avLst", "gdLst"}) {
    for (pugi::xml_node child : geometry.children()) {
      if (localName(child) != list) continue;
      for (pugi::xml_node guide : child.children()) {
        guides.define(guide.attribute("name").value(), guide.attribute("fmla").value());
      }
    }
  }
  Outline outline;
  int steps = 0;
  for (pugi::xml_node list : geometry.children()) {
    if (localName(list) != "pathLst") continue;
    for (pugi::xml_node node : list.children()) {
      if (localName(node) != "path") continue;
      const PathFill fill = fillOf(node.attribute("fill"));
      const bool stroke = !isFalse(node.attribute("stroke"));
      if (fill == PathFill::none && !stroke) continue;  // it only tells other effects what the form is
      PathReader reader(guides, node, width, height, steps);
      if (!reader.path().empty()) outline.push_back({reader.path(), fill, stroke});
    }
  }
  return outline;
}

}  // namespace vellumark::deck
