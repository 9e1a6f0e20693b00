#include "platform/drawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vellumark::platform {
namespace {

constexpr double radians(double degrees) { return degrees * std::numbers::pi / 180; }

}  // namespace

Affine Affine::after(const Affine& first) const {
  return {xx * first.xx + xy * first.yx, xx * first.xy + xy * first.yy, xx * first.dx + xy * first.dy + dx,
          yx * first.xx + yy * first.yx, yx * first.xy + yy * first.yy, yx * first.dx + yy * first.dy + dy};
}

Affine Affine::turned(double degrees) {
  const double c = std::cos(radians(degrees)), s = std::sin(radians(degrees));
  return {c, -s, 0, s, c, 0};
}

void Bounds::include(const Bounds& other) {
  left = std::min(left, other.left);
  top = std::min(top, other.top);
  right = std::max(right, other.right);
  bottom = std::max(bottom, other.bottom);
}

std::span<const DrawPoint> Path::Segment::places() const {
  return {points.data(), step == Step::close ? 0U : step == Step::curve ? 3U : 1U};
}

Path::Path(const std::vector<Segment>& segments) {
  for (const Segment& segment : segments) add(segment.step, segment.points);
}

Bounds Path::bounds() const {
  Bounds box;
  for (const Segment& segment : segments_) {
    for (const DrawPoint& p : segment.places()) box.include({p.x, p.y, p.x, p.y});
  }
  return box;
}

void Path::add(Step step, std::array<DrawPoint, 3> points) {
  segments_.push_back({step, points});
  switch (step) {
    case Step::move:
      start_ = current_ = points[0];
      break;
    case Step::line:
      current_ = points[0];
      break;
    case Step::curve:
      current_ = points[2];
      break;
    case Step::close:
      current_ = start_;
      break;
  }
}

void Path::quadTo(double x1, double y1, double x, double y) {
  const DrawPoint from = current_;
  const auto toward = [](double end, double control) { return end + (control - end) * 2 / 3; };
  curveTo(toward(from.x, x1), toward(from.y, y1), toward(x, x1), toward(y, y1), x, y);
}

/// Each Bézier curve takes a quarter of the ellipse at most.
void Path::arcTo(double radiusX, double radiusY, double start, double sweep) {
  if (sweep == 0) return;
  const DrawPoint from = current_;
  const double centreX = from.x - radiusX * std::cos(radians(start));
  const double centreY = from.y - radiusY * std::sin(radians(start));
  const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / 90 - 1e-9)));
  const double step = radians(sweep) / pieces;
  const double handle = 4.0 / 3.0 * std::tan(step / 4);
  double angle = radians(start);
  for (int i = 0; i < pieces; ++i, angle += step) {
    const double c1 = std::cos(angle), s1 = std::sin(angle);
    const double c2 = std::cos(angle + step), s2 = std::sin(angle + step);
    curveTo(centreX + radiusX * (c1 - handle * s1), centreY + radiusY * (s1 + handle * c1),
            centreX + radiusX * (c2 + handle * s2), centreY + radiusY * (s2 - handle * c2),
            centreX + radiusX * c2, centreY + radiusY * s2);
  }
}

void Path::rectangle(double x, double y, double width, double height) {
  moveTo(x, y);
  lineTo(x + width, y);
  lineTo(x + width, y + height);
  lineTo(x, y + height);
  close();
}

void Path::ellipse(double x, double y, double width, double height) {
  moveTo(x, y + height / 2);
  arcTo(width / 2, height / 2, 180, 360);
  close();
}

void Path::append(const Path& other, const Affine& map) {
  for (const Segment& segment : other.segments_) {
    std::array<DrawPoint, 3> points;
    for (std::size_t i = 0; i < points.size(); ++i) points[i] = map(segment.points[i]);
    add(segment.step, points);
  }
}

}  // namespace vellumark::platform
