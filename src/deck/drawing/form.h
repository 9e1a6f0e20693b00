#pragma once
// The drawing board for the forms of presets: a frame with its measures and guides, and a pen.

#include <cstdint>
#include <initializer_list>
#include <span>

#include "deck/drawing/outline.h"

namespace vellumark::deck {

/// `value` brought into a range; the lower end wins where the ends cross.
constexpr double pin(double lowest, double value, double highest) {
  return value < lowest ? lowest : value > highest ? highest : value;
}

/// A form in the making. All places are in points from the left top corner of the frame, angles in degrees
/// clockwise from the right.
class Form {
 public:
  using Point = platform::DrawPoint;
  using Points = std::initializer_list<Point>;
  using Draw = void (*)(Form&);

  Form(double width, double height, std::span<const std::int32_t> guides);

  const double w, h;    ///< also the right and the bottom side
  const double cx, cy;  ///< the centre
  const double side;    ///< the shorter one

  /// A guide counted in 100000ths, brought into a range where one is given; 0 where it is missing.
  double ratio(std::size_t guide) const;
  double ratio(std::size_t guide, double lowest, double highest) const {
    return pin(lowest, ratio(guide), highest);
  }
  /// A guide that counts a length in shares of the shorter side.
  double length(std::size_t guide, double longest) const { return pin(0, side * ratio(guide), longest); }
  /// A guide that is an angle, as it is and brought into one turn.
  double angle(std::size_t guide) const;
  double direction(std::size_t guide) const { return pin(0, angle(guide), 360 - 1.0 / 60'000); }

  // Each of these begins a path; drawing without one begins a shape.
  Form& shape(PathFill fill = PathFill::normal) { return begin(fill, true); }
  Form& area(PathFill fill = PathFill::normal) { return begin(fill, false); }
  Form& lines() { return begin(PathFill::none, true); }

  // The pen.
  Form& moveTo(double x, double y);
  Form& lineTo(double x, double y);
  Form& quadTo(double x1, double y1, double x, double y);
  Form& curveTo(double x1, double y1, double x2, double y2, double x, double y);
  Form& close();
  /// On along an ellipse that the pen stands on, from a parameter of it.
  Form& arc(double radiusX, double radiusY, double start, double sweep);
  /// Along the ellipse about a centre, from a direction to another one; the pen comes there by a line if a
  /// figure has begun.
  Form& around(Point centre, double radiusX, double radiusY, double start, double sweep);

  // Whole figures.
  Form& rectangle(double left, double top, double right, double bottom);
  Form& frame() { return rectangle(0, 0, w, h); }
  Form& ellipse(Point centre, double radiusX, double radiusY);
  Form& circle(Point centre, double radius) { return ellipse(centre, radius, radius); }
  Form& polyline(std::span<const Point> points);
  Form& polyline(Points points) { return polyline(std::span(points.begin(), points.size())); }
  Form& polygon(std::span<const Point> points);
  Form& polygon(Points points) { return polygon(std::span(points.begin(), points.size())); }
  /// The same with places counted in cells of a grid of so many by so many over the frame.
  Form& gridPolyline(double cells, Points points);
  Form& gridPolygon(double cells, Points points);
  /// Polygons of which one part is told, with its ends on the axes, and mirrored at those: the upper half,
  /// the left half, or the left top quarter (from the left).
  Form& upperHalf(Points points);
  Form& leftHalf(Points points);
  Form& quarter(Points points);

  /// Adds to this path what is drawn on the mirror image of the frame, left and right changed.
  template <typename Draws>
  Form& mirror(Draws draw) {
    Form other(w, h, guides_);
    draw(other);
    return addMirrored(other);
  }
  /// Draws the paths of another form through a map.
  void append(Form& other, const platform::Affine& map);
  std::span<const std::int32_t> guides() const { return guides_; }
  Outline take();

 private:
  Form& begin(PathFill fill, bool stroke);
  platform::Path& pen();
  Form& addMirrored(const Form& other);
  std::vector<Point> onGrid(double cells, Points points) const;

  std::span<const std::int32_t> guides_;
  Outline outline_;
  bool drawing_ = false;  ///< a figure has begun and is not closed
};

/// How a form lies: as its mirror image (left and right, top and bottom, or x and y changed), or turned from
/// the right to point up.
enum class Lie : std::uint8_t { mirrored, flipped, transposed, up };

void drawLying(Form& form, Lie lie, Form::Draw draw);

template <Lie lie, Form::Draw draw>
void lying(Form& form) {
  drawLying(form, lie, draw);
}

}  // namespace vellumark::deck
