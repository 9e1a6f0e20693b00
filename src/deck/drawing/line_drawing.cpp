#include "deck/drawing/line_drawing.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vellumark::deck {
namespace {

using platform::Affine;
using platform::Drawing;
using platform::DrawPoint;
using platform::Path;
using Segment = Path::Segment;
using Step = Path::Step;

double distance(DrawPoint a, DrawPoint b) { return std::hypot(b.x - a.x, b.y - a.y); }

/// Where an open path ends, and the way that it takes there, of length 1.
struct Tip {
  DrawPoint place;
  DrawPoint way;
};

Tip tipFrom(DrawPoint place, std::initializer_list<DrawPoint> before) {
  for (const DrawPoint from : before) {
    const double length = distance(from, place);
    if (length > 1e-6) return {place, {(place.x - from.x) / length, (place.y - from.y) / length}};
  }
  return {place, {0, 0}};
}

/// Thin lines carry the heads of a line of two points.
constexpr double thinnest = 2;

/// A head that points to the right with its tip at 0, 0, one by one in size.
Path headForm(std::string_view kind) {
  Path path;
  if (kind == "oval") {
    path.ellipse(-0.5, -0.5, 1, 1);
  } else if (kind == "diamond") {
    path.moveTo(0.5, 0);
    path.lineTo(0, 0.5);
    path.lineTo(-0.5, 0);
    path.lineTo(0, -0.5);
    path.close();
  } else {
    path.moveTo(-1, -0.5);
    path.lineTo(0, 0);
    path.lineTo(-1, 0.5);
    if (kind == "stealth") path.lineTo(-0.6, 0);
    if (kind != "arrow") path.close();
  }
  return path;
}

/// Draws the head at a tip and returns by how much the line is shorter for it.
double drawHead(const Tip& tip, const LineEnd& end, const platform::Pen& pen, Drawing& drawing) {
  const double unit = std::max(pen.width, thinnest);
  const double length = end.length * unit, width = end.width * unit;
  const Affine place{tip.way.x * length, -tip.way.y * width, tip.place.x,
                     tip.way.y * length, tip.way.x * width,  tip.place.y};
  Path path;
  path.append(headForm(end.kind), place);
  if (end.kind == "arrow") {
    platform::Pen whole = pen;
    whole.dashes.clear();
    drawing.commands.emplace_back(Drawing::Stroke{std::move(path), whole});
    return 0;
  }
  drawing.commands.emplace_back(Drawing::Fill{.path = std::move(path), .brush = {.color = pen.color}});
  return end.kind == "triangle" ? length * 0.8 : end.kind == "stealth" ? length * 0.55 : 0;
}

DrawPoint back(const Tip& tip, double by) {
  return {tip.place.x - tip.way.x * by, tip.place.y - tip.way.y * by};
}

}  // namespace

void drawLine(const Path& path, const Line& line, Drawing& drawing) {
  std::vector<Segment> segments = path.segments();
  const bool isOpen = segments.size() > 1 && std::ranges::none_of(segments, [](const Segment& segment) {
                        return segment.step == Step::close;
                      });
  if (isOpen && !(line.head.kind.empty() && line.tail.kind.empty())) {
    Segment& first = segments[0];
    Segment& second = segments[1];
    Segment& last = segments.back();
    const DrawPoint beforeLast = segments[segments.size() - 2].end();
    const Tip head = tipFrom(first.points[0], {second.points[0], second.end()});
    const Tip tail = last.step == Step::curve
                         ? tipFrom(last.points[2], {last.points[1], last.points[0], beforeLast})
                         : tipFrom(last.points[0], {beforeLast});
    // Half of a short line is left between its heads.
    const double room = distance(head.place, tail.place) / 2;
    if (!line.head.kind.empty()) {
      first.points[0] = back(head, std::min(drawHead(head, line.head, line.pen, drawing), room));
    }
    if (!line.tail.kind.empty()) {
      last.end() = back(tail, std::min(drawHead(tail, line.tail, line.pen, drawing), room));
    }
  }
  drawing.commands.emplace_back(Drawing::Stroke{Path(segments), line.pen});
}

}  // namespace vellumark::deck
