#pragma once
// A picture as a list of things to draw, in points, that no system's canvas needs to be there for: whoever
// paints it replays the list. Text comes as the outlines of its letters.

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace vellumark::platform {

/// A place in points; y grows downward.
struct DrawPoint {
  double x = 0;
  double y = 0;

  friend bool operator==(const DrawPoint&, const DrawPoint&) = default;
};

/// An affine map: x' = xx * x + xy * y + dx, y' = yx * x + yy * y + dy.
struct Affine {
  double xx = 1, xy = 0, dx = 0;
  double yx = 0, yy = 1, dy = 0;

  DrawPoint operator()(DrawPoint p) const { return {xx * p.x + xy * p.y + dx, yx * p.x + yy * p.y + dy}; }
  /// This map after `first`.
  Affine after(const Affine& first) const;

  static Affine moved(double dx, double dy) { return {1, 0, dx, 0, 1, dy}; }
  static Affine scaled(double x, double y) { return {x, 0, 0, 0, y, 0}; }
  /// Turned clockwise about the origin, in degrees.
  static Affine turned(double degrees);
};

/// A box; one that holds nothing has its sides the wrong way round.
struct Bounds {
  double left = std::numeric_limits<double>::infinity(), top = left, right = -left, bottom = -left;

  bool empty() const { return left > right; }
  void include(const Bounds& other);
  Bounds widened(double by) const { return {left - by, top - by, right + by, bottom + by}; }
};

/// Lines and Bézier curves, in one or several figures.
class Path {
 public:
  enum class Step : std::uint8_t { move, line, curve, close };
  struct Segment {
    Step step;
    std::array<DrawPoint, 3> points;  ///< one for move and line, three for a curve, none for close

    std::span<const DrawPoint> places() const;
    /// Where the step leads; not for close.
    DrawPoint& end() { return points[step == Step::curve ? 2 : 0]; }
  };

  Path() = default;
  explicit Path(const std::vector<Segment>& segments);

  void moveTo(double x, double y) { add(Step::move, {{{x, y}}}); }
  void lineTo(double x, double y) { add(Step::line, {{{x, y}}}); }
  void curveTo(double x1, double y1, double x2, double y2, double x, double y) {
    add(Step::curve, {{{x1, y1}, {x2, y2}, {x, y}}});
  }
  /// A curve with one control point.
  void quadTo(double x1, double y1, double x, double y);
  /// From the present place along an ellipse of these radii: it stands at `start` degrees on it (clockwise
  /// from the right, as a parameter of the ellipse) and goes on by `sweep` degrees.
  void arcTo(double radiusX, double radiusY, double start, double sweep);
  void close() { add(Step::close, {}); }

  void rectangle(double x, double y, double width, double height);
  void ellipse(double x, double y, double width, double height);
  void append(const Path& other, const Affine& map);

  bool empty() const { return segments_.empty(); }
  /// The box around all places and control points.
  Bounds bounds() const;
  const std::vector<Segment>& segments() const { return segments_; }
  /// Where the next line would begin.
  DrawPoint current() const { return current_; }

 private:
  void add(Step step, std::array<DrawPoint, 3> points);

  std::vector<Segment> segments_;
  DrawPoint current_;
  DrawPoint start_;  ///< of the figure
};

/// A colour as 0xAARRGGBB; an alpha of 0 is nothing to see.
using Argb = std::uint32_t;

struct GradientStop {
  double place;  ///< 0 to 1
  Argb color;
};

/// What an area is filled with: a colour, or colours that run from one place to another.
struct Brush {
  enum class Kind : std::uint8_t { solid, linear, radial };
  Kind kind = Kind::solid;
  Argb color = 0;                     ///< solid
  std::vector<GradientStop> stops{};  ///< in order
  DrawPoint from{};                   ///< linear: begin and end; radial: centre, and a place on the rim
  DrawPoint to{};
};

struct Pen {
  Argb color = 0xFF000000;
  double width = 0.75;           ///< points
  std::vector<double> dashes{};  ///< dash, gap, ... as multiples of the width; empty for a whole line
  enum class Cap : std::uint8_t { flat, round, square } cap = Cap::flat;
  enum class Join : std::uint8_t { miter, round, bevel } join = Join::round;
};

/// A picture file's bytes.
using PictureBytes = std::shared_ptr<const std::string>;

/// Everything lies in points; what comes later covers what came before.
struct Drawing {
  struct Fill {
    Path path;
    Brush brush;
    bool evenOdd = true;  ///< where figures overlap, every second one is a hole
  };
  struct Stroke {
    Path path;
    Pen pen;
  };
  /// A picture. `map` brings the unit square to the place where the part of it shows that is left when these
  /// shares are cut off its sides; only what lies inside `clip` is seen, everything where it is empty.
  struct Picture {
    PictureBytes bytes;
    Affine map;
    double cropLeft = 0, cropTop = 0, cropRight = 0, cropBottom = 0;
    double opacity = 1;
    Path clip;
  };
  using Command = std::variant<Fill, Stroke, Picture>;

  /// The part of the plane that the picture shows.
  double left = 0, top = 0, width = 0, height = 0;
  std::vector<Command> commands{};
};

}  // namespace vellumark::platform
