#include "deck/drawing/form.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "deck/drawing/ellipse_angle.h"

namespace vellumark::deck {

Form::Form(double width, double height, std::span<const std::int32_t> guides)
    : w(width), h(height), cx(width / 2), cy(height / 2), side(std::min(width, height)), guides_(guides) {}

double Form::ratio(std::size_t guide) const {
  return guide < guides_.size() ? guides_[guide] / 100'000.0 : 0;
}

double Form::angle(std::size_t guide) const { return guide < guides_.size() ? guides_[guide] / 60'000.0 : 0; }

Form& Form::begin(PathFill fill, bool stroke) {
  outline_.push_back({{}, fill, stroke});
  drawing_ = false;
  return *this;
}

platform::Path& Form::pen() {
  if (outline_.empty()) shape();
  return outline_.back().path;
}

Form& Form::moveTo(double x, double y) {
  pen().moveTo(x, y);
  drawing_ = true;
  return *this;
}

/// No step of no length: two lines that meet without one are joined properly.
Form& Form::lineTo(double x, double y) {
  const Point here = pen().current();
  if (std::abs(here.x - x) > 1e-9 || std::abs(here.y - y) > 1e-9) pen().lineTo(x, y);
  return *this;
}

Form& Form::quadTo(double x1, double y1, double x, double y) {
  pen().quadTo(x1, y1, x, y);
  return *this;
}

Form& Form::curveTo(double x1, double y1, double x2, double y2, double x, double y) {
  pen().curveTo(x1, y1, x2, y2, x, y);
  return *this;
}

Form& Form::close() {
  if (drawing_) pen().close();
  drawing_ = false;
  return *this;
}

Form& Form::arc(double radiusX, double radiusY, double start, double sweep) {
  const bool sensible = std::isfinite(start) && std::isfinite(sweep) && (radiusX != 0 || radiusY != 0);
  if (sensible) pen().arcTo(radiusX, radiusY, start, sweep);
  return *this;
}

Form& Form::around(Point centre, double radiusX, double radiusY, double start, double sweep) {
  const double from = ellipseParameter(start, radiusX, radiusY);
  const double to = ellipseParameter(start + sweep, radiusX, radiusY);
  const Point begin = onEllipse(centre, radiusX, radiusY, from);
  drawing_ ? lineTo(begin.x, begin.y) : moveTo(begin.x, begin.y);
  return arc(radiusX, radiusY, from, to - from);
}

Form& Form::rectangle(double left, double top, double right, double bottom) {
  return polygon({{left, top}, {right, top}, {right, bottom}, {left, bottom}});
}

Form& Form::ellipse(Point centre, double radiusX, double radiusY) {
  return moveTo(centre.x - radiusX, centre.y).arc(radiusX, radiusY, 180, 360).close();
}

Form& Form::polyline(std::span<const Point> points) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    i == 0 ? moveTo(points[i].x, points[i].y) : lineTo(points[i].x, points[i].y);
  }
  return *this;
}

Form& Form::polygon(std::span<const Point> points) { return polyline(points).close(); }

std::vector<Form::Point> Form::onGrid(double cells, Points points) const {
  std::vector<Point> placed;
  for (const Point& point : points) placed.push_back({point.x / cells * w, point.y / cells * h});
  return placed;
}

Form& Form::gridPolyline(double cells, Points points) { return polyline(onGrid(cells, points)); }

Form& Form::gridPolygon(double cells, Points points) { return polygon(onGrid(cells, points)); }

Form& Form::upperHalf(Points points) {
  std::vector<Point> all(points);
  for (std::size_t i = points.size(); i-- > 0;) all.push_back({all[i].x, h - all[i].y});
  return polygon(all);
}

Form& Form::leftHalf(Points points) {
  std::vector<Point> all(points);
  for (std::size_t i = points.size(); i-- > 0;) all.push_back({w - all[i].x, all[i].y});
  return polygon(all);
}

Form& Form::quarter(Points points) {
  std::vector<Point> all(points);
  for (std::size_t i = points.size(); i-- > 0;) all.push_back({w - all[i].x, all[i].y});
  for (std::size_t i = all.size(); i-- > 0;) all.push_back({all[i].x, h - all[i].y});
  return polygon(all);
}

Form& Form::addMirrored(const Form& other) {
  for (const OutlinePath& from : other.outline_) pen().append(from.path, {-1, 0, w, 0, 1, 0});
  return *this;
}

void Form::append(Form& other, const platform::Affine& map) {
  for (OutlinePath& from : other.outline_) {
    begin(from.fill, from.stroke);
    pen().append(from.path, map);
  }
}

Outline Form::take() { return std::move(outline_); }

void drawLying(Form& form, Lie lie, Form::Draw draw) {
  const bool upright = lie == Lie::mirrored || lie == Lie::flipped;
  Form other(upright ? form.w : form.h, upright ? form.h : form.w, form.guides());
  draw(other);
  switch (lie) {
    case Lie::mirrored:
      return form.append(other, {-1, 0, form.w, 0, 1, 0});
    case Lie::flipped:
      return form.append(other, {1, 0, 0, 0, -1, form.h});
    case Lie::transposed:
      return form.append(other, {0, 1, 0, 1, 0, 0});
    case Lie::up:
      return form.append(other, {0, 1, 0, -1, 0, form.h});
  }
}

}  // namespace vellumark::deck
