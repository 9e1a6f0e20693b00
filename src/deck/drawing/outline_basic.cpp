// Rectangles with other corners, polygons, frames and brackets.

#include <array>
#include <cmath>

#include "deck/drawing/ellipse_angle.h"
#include "deck/drawing/outline_forms.h"

namespace vellumark::deck::forms {
namespace {

/// A corner of a rectangle: cut straight, rounded outward or inward.
struct Corner {
  enum class Kind : std::uint8_t { snip, round, scoop } kind;
  double size;
};

/// A rectangle; the corners go clockwise from the left top one.
void cornered(Form& form, const std::array<Corner, 4>& corners) {
  constexpr Form::Point along[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};  // the side after each corner
  const Form::Point places[] = {{0, 0}, {form.w, 0}, {form.w, form.h}, {0, form.h}};
  for (std::size_t i = 0; i < 4; ++i) {
    const auto [kind, size] = corners[i];
    const Form::Point place = places[i], next = along[i], before = along[(i + 3) % 4];
    const Form::Point in{place.x - before.x * size, place.y - before.y * size};
    i == 0 ? form.moveTo(in.x, in.y) : form.lineTo(in.x, in.y);
    const double turned = 90.0 * static_cast<double>(i);
    if (kind == Corner::Kind::round) form.arc(size, size, 180 + turned, 90);
    if (kind == Corner::Kind::scoop) form.arc(size, size, 90 + turned, -90);
    form.lineTo(place.x + next.x * size, place.y + next.y * size);
  }
  form.close();
}

void cornered(Form& form, Corner::Kind kind, std::array<double, 4> sizes) {
  cornered(form, {{{kind, sizes[0]}, {kind, sizes[1]}, {kind, sizes[2]}, {kind, sizes[3]}}});
}

double cornerSize(const Form& form, std::size_t guide) { return form.length(guide, form.side / 2); }

/// All corners alike, by the first guide.
void cornered(Form& form, Corner::Kind kind) {
  const double size = cornerSize(form, 0);
  cornered(form, kind, {size, size, size, size});
}

/// Corners that face each other are alike.
void cornered2Diagonal(Form& form, Corner::Kind kind) {
  const double first = cornerSize(form, 0), second = cornerSize(form, 1);
  cornered(form, kind, {first, second, first, second});
}

void cornered2Same(Form& form, Corner::Kind kind) {
  const double top = cornerSize(form, 0), bottom = cornerSize(form, 1);
  cornered(form, kind, {top, top, bottom, bottom});
}

/// A polygon of so many corners on an ellipse, the first of them at a parameter.
void regular(Form& form, int corners, double first, double radiusX, double radiusY, double centreY) {
  std::vector<Form::Point> points;
  for (int i = 0; i < corners; ++i) {
    points.push_back(onEllipse({form.cx, centreY}, radiusX, radiusY, first + 360.0 * i / corners));
  }
  form.polygon(points);
}

/// What is open to a side is filled up to there, and has a line where it was drawn.
void filledAndLined(Form& form, Form::Draw draw) {
  draw(form.area());
  form.close();
  draw(form.lines());
}

/// A pair of brackets or braces: what they hold, and the right one with its mirror image.
void pair(Form& form, Form::Draw inside, Form::Draw right) {
  inside(form.area());
  right(form.lines());
  form.mirror(right);
}

/// From the left top down to the left bottom, bulging to the right.
void braceLine(Form& form) {
  const double middle = form.ratio(1, 0, 1);
  const double curl = form.length(0, std::min(middle, 1 - middle) / 2 * form.h);
  const double y = form.h * middle;
  form.moveTo(0, 0).arc(form.cx, curl, 270, 90).lineTo(form.cx, y - curl);
  form.arc(form.cx, curl, 180, -90).arc(form.cx, curl, 270, -90).lineTo(form.cx, form.h - curl);
  form.arc(form.cx, curl, 0, 90);
}

void bracketLine(Form& form) {
  const double curl = form.length(0, form.cy);
  form.moveTo(0, 0).arc(form.w, curl, 270, 90).lineTo(form.w, form.h - curl).arc(form.w, curl, 0, 90);
}

/// The right brace of a pair, from the top down.
void halfOfBraces(Form& form) {
  const double curl = form.length(0, form.side / 4), x = form.w - curl;
  form.moveTo(x - curl, 0).arc(curl, curl, 270, 90).lineTo(x, form.cy - curl).arc(curl, curl, 180, -90);
  form.arc(curl, curl, 270, -90).lineTo(x, form.h - curl).arc(curl, curl, 0, 90);
}

void halfOfBrackets(Form& form) {
  const double curl = cornerSize(form, 0), x = form.w - curl;
  form.moveTo(x, 0).arc(curl, curl, 270, 90).lineTo(form.w, form.h - curl).arc(curl, curl, 0, 90);
}

void insideOfBraces(Form& form) {
  halfOfBraces(form);
  const double curl = form.length(0, form.side / 4);
  form.lineTo(2 * curl, form.h).arc(curl, curl, 90, 90).lineTo(curl, form.cy + curl).arc(curl, curl, 0, -90);
  form.arc(curl, curl, 90, -90).lineTo(curl, curl).arc(curl, curl, 180, 90).close();
}

}  // namespace

void rect(Form& form) { form.frame(); }

void roundRect(Form& form) { cornered(form, Corner::Kind::round); }
void round1Rect(Form& form) { cornered(form, Corner::Kind::round, {0, cornerSize(form, 0), 0, 0}); }
void round2SameRect(Form& form) { cornered2Same(form, Corner::Kind::round); }
void round2DiagRect(Form& form) { cornered2Diagonal(form, Corner::Kind::round); }
void snip1Rect(Form& form) { cornered(form, Corner::Kind::snip, {0, cornerSize(form, 0), 0, 0}); }
void snip2SameRect(Form& form) { cornered2Same(form, Corner::Kind::snip); }
void snip2DiagRect(Form& form) { cornered2Diagonal(form, Corner::Kind::snip); }
void snipRoundRect(Form& form) {
  cornered(form, {{{Corner::Kind::round, cornerSize(form, 0)},
                   {Corner::Kind::snip, cornerSize(form, 1)},
                   {Corner::Kind::snip, 0},
                   {Corner::Kind::snip, 0}}});
}
void octagon(Form& form) { cornered(form, Corner::Kind::snip); }
void plaque(Form& form) { cornered(form, Corner::Kind::scoop); }
void flowChartAlternateProcess(Form& form) {
  const double size = form.side / 6;
  cornered(form, Corner::Kind::round, {size, size, size, size});
}

void triangle(Form& form) {
  form.polygon({{0, form.h}, {form.w * form.ratio(0, 0, 1), 0}, {form.w, form.h}});
}

void rtTriangle(Form& form) { form.gridPolygon(1, {{0, 1}, {0, 0}, {1, 1}}); }

void diamond(Form& form) { form.gridPolygon(2, {{0, 1}, {1, 0}, {2, 1}, {1, 2}}); }

void parallelogram(Form& form) {
  const double slant = form.length(0, form.w);
  form.polygon({{0, form.h}, {slant, 0}, {form.w, 0}, {form.w - slant, form.h}});
}

void trapezoid(Form& form) {
  const double slant = form.length(0, form.cx);
  form.leftHalf({{0, form.h}, {slant, 0}});
}

void nonIsoscelesTrapezoid(Form& form) {
  const double left = form.length(0, form.cx), right = form.length(1, form.cx);
  form.polygon({{0, form.h}, {left, 0}, {form.w - right, 0}, {form.w, form.h}});
}

void hexagon(Form& form) {
  const double slant = form.length(0, form.cx);
  const double rise = form.cy * form.ratio(1) * std::sqrt(0.75);
  form.leftHalf({{slant, form.cy + rise}, {0, form.cy}, {slant, form.cy - rise}});
}

/// Their guides stretch these so that they fill the frame.
void pentagonOrHeptagon(Form& form, int corners) {
  const double radiusY = form.cy * form.ratio(1);
  regular(form, corners, -90, form.cx * form.ratio(0), radiusY, radiusY);
}

void decagon(Form& form) { regular(form, 10, 0, form.cx, form.cy * form.ratio(0), form.cy); }

/// Its sides lie on the frame.
void dodecagon(Form& form) {
  const double outward = 1 / onEllipse({}, 1, 1, 15).x;
  regular(form, 12, 15, form.cx * outward, form.cy * outward, form.cy);
}

void plus(Form& form) {
  const double arm = cornerSize(form, 0);
  form.quarter({{0, arm}, {arm, arm}, {arm, 0}});
}

void diagStripe(Form& form) {
  const double share = form.ratio(0, 0, 1);
  form.polygon({{0, form.h * share}, {form.w * share, 0}, {form.w, 0}, {0, form.h}});
}

void frame(Form& form) {
  const double bar = cornerSize(form, 0);
  form.frame().rectangle(bar, bar, form.w - bar, form.h - bar);
}

void halfFrame(Form& form) {
  const double left = form.length(1, form.w), slope = form.h / form.w;
  const double top = form.length(0, form.h - left * slope);
  form.polygon({{0, 0},
                {form.w, 0},
                {form.w - top / slope, top},
                {left, top},
                {left, form.h - left * slope},
                {0, form.h}});
}

void corner(Form& form) {
  const double x = form.length(1, form.w), y = form.h - form.length(0, form.h);
  form.polygon({{0, 0}, {x, 0}, {x, y}, {form.w, y}, {form.w, form.h}, {0, form.h}});
}

void bevel(Form& form) {
  const double edge = cornerSize(form, 0), w = form.w, h = form.h, right = w - edge, bottom = h - edge;
  form.area().rectangle(edge, edge, right, bottom);
  form.area(PathFill::lightenLess).polygon({{0, 0}, {w, 0}, {right, edge}, {edge, edge}});
  form.area(PathFill::darkenLess).polygon({{0, h}, {edge, bottom}, {right, bottom}, {w, h}});
  form.area(PathFill::lighten).polygon({{0, 0}, {edge, edge}, {edge, bottom}, {0, h}});
  form.area(PathFill::darken).polygon({{w, 0}, {w, h}, {right, bottom}, {right, edge}});
  form.lines().frame().rectangle(edge, edge, right, bottom);
  form.polyline({{0, 0}, {edge, edge}}).polyline({{0, h}, {edge, bottom}});
  form.polyline({{w, 0}, {right, edge}}).polyline({{w, h}, {right, bottom}});
}

void cube(Form& form) {
  const double depth = form.length(0, form.side), w = form.w, h = form.h, right = w - depth;
  form.area().rectangle(0, depth, right, h);
  form.area(PathFill::darkenLess).polygon({{right, depth}, {w, 0}, {w, h - depth}, {right, h}});
  form.area(PathFill::lightenLess).polygon({{0, depth}, {depth, 0}, {w, 0}, {right, depth}});
  form.lines().polygon({{0, depth}, {depth, 0}, {w, 0}, {w, h - depth}, {right, h}, {0, h}});
  form.polyline({{0, depth}, {right, depth}, {w, 0}}).polyline({{right, depth}, {right, h}});
}

void foldedCorner(Form& form) {
  const double fold = cornerSize(form, 0), w = form.w, h = form.h;
  const Form::Point below{w - fold, h}, tip{w - fold * 4 / 5, h - fold * 4 / 5}, above{w, h - fold};
  form.area().polygon({{0, 0}, {w, 0}, above, below, {0, h}});
  form.area(PathFill::darkenLess).polygon({below, tip, above});
  form.lines().polyline({below, tip, above, below, {0, h}, {0, 0}, {w, 0}, above});
}

void rightBracket(Form& form) { filledAndLined(form, bracketLine); }
void rightBrace(Form& form) { filledAndLined(form, braceLine); }
void bracketPair(Form& form) { pair(form, roundRect, halfOfBrackets); }
void bracePair(Form& form) { pair(form, insideOfBraces, halfOfBraces); }

/// What a table or chart cell is marked with, over its area.
void chartMark(Form& form, bool cross, bool diagonals, bool upright) {
  form.lines();
  if (diagonals) form.gridPolyline(1, {{0, 0}, {1, 1}}).gridPolyline(1, {{0, 1}, {1, 0}});
  if (upright) form.gridPolyline(2, {{1, 0}, {1, 2}});
  if (cross) form.gridPolyline(2, {{0, 1}, {2, 1}});
  form.area().frame();
}

/// A tab in each corner of the frame.
void tabs(Form& form, TabForm kind) {
  const double size = std::hypot(form.w, form.h) / 20;
  constexpr struct {
    double x, y, start;  ///< where the arc of a round one starts
  } corners[] = {{0, 0, 0}, {0, 1, 270}, {1, 0, 90}, {1, 1, 180}};
  for (const auto& corner : corners) {
    const double x = corner.x * form.w, y = corner.y * form.h;
    const double inX = corner.x > 0 ? x - size : size, inY = corner.y > 0 ? y - size : size;
    form.shape();
    if (kind == TabForm::square) form.rectangle(x, y, inX, inY);
    if (kind == TabForm::triangle) form.polygon({{x, y}, {inX, y}, {x, inY}});
    if (kind == TabForm::round) form.moveTo(x, y).around({x, y}, size, size, corner.start, 90).close();
  }
}

}  // namespace vellumark::deck::forms
