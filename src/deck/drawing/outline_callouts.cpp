// Boxes with a line or a tip to what they speak of.

#include <algorithm>
#include <array>
#include <cmath>

#include "deck/drawing/ellipse_angle.h"
#include "deck/drawing/outline_forms.h"

namespace vellumark::deck::forms {
namespace {

using Point = Form::Point;

/// Where the tip of a speech bubble lies, from the two first guides.
Point tipOf(const Form& form) { return {form.cx + form.w * form.ratio(0), form.cy + form.h * form.ratio(1)}; }

/// A box with a tip out of the side that it lies on, seen along the diagonals. Each side has a place for the
/// tip's foot, a quarter of it wide, before or behind the middle; also where a corner is too round for that.
void bubble(Form& form, double round) {
  const Point tip = tipOf(form);
  const bool right = tip.x > form.cx, below = tip.y > form.cy;
  const bool upright = std::abs(form.ratio(1)) > std::abs(form.ratio(0));
  const std::size_t side = upright ? (below ? 2 : 0) : (right ? 1 : 3);

  const Point corners[] = {{0, 0}, {form.w, 0}, {form.w, form.h}, {0, form.h}};
  const Point inward[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};  // from a corner along the side after it
  for (std::size_t i = 0; i < 4; ++i) {
    const Point from = corners[i], to = corners[(i + 1) % 4], along = inward[i];
    const Point start{from.x + along.x * round, from.y + along.y * round};
    i == 0 ? form.moveTo(start.x, start.y) : form.lineTo(start.x, start.y);
    const bool later = i % 2 == 0 ? right : below;
    const double foot = later == (i < 2) ? 7.0 / 12 : 2.0 / 12;  // the later sides run backward
    const auto lineTo = [&](double share) {
      form.lineTo(from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share);
    };
    lineTo(foot);
    if (i == side) form.lineTo(tip.x, tip.y);
    lineTo(foot + 0.25);
    form.lineTo(to.x - along.x * round, to.y - along.y * round);
    form.arc(round, round, 270 + 90.0 * static_cast<double>(i), 90);
  }
  form.close();
}

}  // namespace

void lineCallout(Form& form, int legs, bool border, bool accent) {
  (border ? form.shape() : form.area()).frame();
  const auto at = [&](std::size_t i) {
    return Point{form.w * form.ratio(2 * i + 1), form.h * form.ratio(2 * i)};
  };
  if (accent) form.lines().polyline({{at(0).x, 0}, {at(0).x, form.h}});
  form.lines().moveTo(at(0).x, at(0).y);
  for (std::size_t i = 1; i <= static_cast<std::size_t>(legs); ++i) form.lineTo(at(i).x, at(i).y);
}

void wedgeRectCallout(Form& form) { bubble(form, 0); }

void wedgeRoundRectCallout(Form& form) { bubble(form, form.length(2, form.side / 2)); }

/// The foot of its tip is 22 degrees wide.
void wedgeEllipseCallout(Form& form) {
  const Point tip = tipOf(form);
  const double middle = directionOf((tip.x - form.cx) * form.h, (tip.y - form.cy) * form.w);
  const Point foot = onEllipse({form.cx, form.cy}, form.cx, form.cy, middle + 11);
  form.moveTo(tip.x, tip.y).lineTo(foot.x, foot.y).arc(form.cx, form.cy, middle + 11, 338).close();
}

/// Three bubbles lead from the tip to the cloud, growing.
void cloudCallout(Form& form) {
  const Point tip = tipOf(form);
  const double direction = directionOf(tip.x - form.cx, tip.y - form.cy);
  const Point rim =
      onEllipse({form.cx, form.cy}, form.cx, form.cy, ellipseParameter(direction, form.cx, form.cy));
  const double distance = std::hypot(rim.x - tip.x, rim.y - tip.y), unit = form.side / 36;
  const double gap = (distance - 11 * unit) / 3;
  const auto bubbleAt = [&](double way, double radius) {
    const double share = distance > 0 ? way / distance : 0;
    form.shape().circle({tip.x + (rim.x - tip.x) * share, tip.y + (rim.y - tip.y) * share}, radius);
  };
  cloudBody(form.shape());
  bubbleAt(0, unit);
  bubbleAt(gap + 3 * unit, 2 * unit);
  bubbleAt(2 * gap + 8 * unit, 3 * unit);
  cloudCreases(form);
}

}  // namespace vellumark::deck::forms
