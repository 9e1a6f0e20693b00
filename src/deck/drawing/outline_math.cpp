// The signs of arithmetic.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "deck/drawing/outline_forms.h"

namespace vellumark::deck::forms {
namespace {

/// How far a sign reaches from its middle, as share of the whole frame.
constexpr double reach = 0.36745;

}  // namespace

void mathPlus(Form& form) {
  const double half = form.length(0, form.side * 2 * reach) / 2;
  const double left = form.cx - form.w * reach, top = form.cy - form.h * reach;
  form.quarter({{left, form.cy - half}, {form.cx - half, form.cy - half}, {form.cx - half, top}});
}

void mathMinus(Form& form) {
  const double half = form.cy * form.ratio(0, 0, 1), left = form.cx - form.w * reach;
  form.rectangle(left, form.cy - half, form.w - left, form.cy + half);
}

void mathEqual(Form& form) {
  const double bar = form.ratio(0, 0, reach), gap = form.ratio(1, 0, 1 - 2 * bar) / 2;
  const double left = form.cx - form.w * reach, inner = form.cy - form.h * gap, outer = inner - form.h * bar;
  form.rectangle(left, outer, form.w - left, inner);
  form.rectangle(left, form.h - inner, form.w - left, form.h - outer);
}

void mathDivide(Form& form) {
  const double bar = form.ratio(0, 0.01, reach);
  const double dot = form.ratio(2, 0.01, std::min((2 * reach - bar) / 4, reach * form.w / form.h));
  const double gap = form.ratio(1, 0, 2 * reach - 4 * dot - bar);
  const double left = form.cx - form.w * reach, top = form.cy - form.h * bar / 2;
  const double middle = top - form.h * (gap + dot);
  form.circle({form.cx, middle}, form.h * dot).circle({form.cx, form.h - middle}, form.h * dot);
  form.rectangle(left, top, form.w - left, form.h - top);
}

/// The strokes lie along the diagonals of the frame.
void mathMultiply(Form& form) {
  const double half = form.side * form.ratio(0, 0, 0.51965) / 2, diagonal = std::hypot(form.w, form.h);
  const double alongX = form.w / diagonal, alongY = form.h / diagonal;
  const double end = diagonal * (1 - 0.51965) / 2;
  const Form::Point lower{alongX * end - alongY * half, alongY * end + alongX * half};
  const Form::Point upper{alongX * end + alongY * half, alongY * end - alongX * half};
  const double slope = form.h / form.w;
  form.quarter({{lower.x + (form.cy - lower.y) / slope, form.cy},
                lower,
                upper,
                {form.cx, upper.y + (form.cx - upper.x) * slope}});
}

/// An equals sign with a leaning stroke through it, which ends square at the frame.
void mathNotEqual(Form& form) {
  const double share = form.ratio(0, 0, 0.5), gap = form.ratio(2, 0, 1 - 2 * share) / 2;
  const double bar = form.h * share, left = form.cx - form.w * reach;
  const double inner = form.cy - form.h * gap, outer = inner - bar;
  const double lean = (pin(70, form.angle(1), 110) - 90) * std::numbers::pi / 180;
  const double slope = std::tan(lean), width = bar / std::cos(lean);  // of the stroke, level
  const auto strokeAt = [&](double y) { return form.cx + slope * (form.cy - y) - width / 2; };
  const auto turned = [&](Form::Point p) { return Form::Point{form.w - p.x, form.h - p.y}; };
  const bool right = lean > 0;
  const double up = bar * std::sin(std::abs(lean)), across = bar * std::cos(lean);
  const double corner = strokeAt(0);
  const Form::Point topLeft = right ? Form::Point{corner, 0} : Form::Point{corner + width - across, up};
  const Form::Point topRight = right ? Form::Point{corner + across, up} : Form::Point{corner + width, 0};
  const double far = form.w - left;
  form.polygon({{left, outer},
                {strokeAt(outer), outer},
                topLeft,
                topRight,
                {strokeAt(outer) + width, outer},
                {far, outer},
                {far, inner},
                {strokeAt(inner) + width, inner},
                {strokeAt(form.h - inner) + width, form.h - inner},
                {far, form.h - inner},
                {far, form.h - outer},
                {strokeAt(form.h - outer) + width, form.h - outer},
                turned(topLeft),
                turned(topRight),
                {strokeAt(form.h - outer), form.h - outer},
                {left, form.h - outer},
                {left, form.h - inner},
                {strokeAt(form.h - inner), form.h - inner},
                {strokeAt(inner), inner},
                {left, inner}});
}

}  // namespace vellumark::deck::forms
