// Arrows of straight lines, and those with a bend. What exists in several directions is drawn to the right.

#include <algorithm>

#include "deck/drawing/outline_forms.h"

namespace vellumark::deck::forms {
namespace {

/// The measures of an arrow along the frame: half the shaft's thickness, and the length of the head.
struct Arrow {
  Arrow(const Form& form, double longest)
      : shaft(form.cy * form.ratio(0, 0, 1)), head(form.length(1, longest)) {}
  double shaft, head;
};

/// The measures of an arrow that is counted in shares of the shorter side: half the thickness of the shaft,
/// half the width of the head.
struct SideArrow {
  SideArrow(const Form& form, double widest)
      : head(form.length(1, widest)), shaft(form.length(0, 2 * head) / 2) {}
  double head, shaft;
};

}  // namespace

void rightArrow(Form& form) {
  const auto [shaft, head] = Arrow(form, form.w);
  const double x = form.w - head, y = form.cy - shaft;
  form.upperHalf({{0, y}, {x, y}, {x, 0}, {form.w, form.cy}});
}

void leftRightArrow(Form& form) {
  const auto [shaft, head] = Arrow(form, form.cx);
  form.quarter({{0, form.cy}, {head, 0}, {head, form.cy - shaft}});
}

void notchedRightArrow(Form& form) {
  const auto [shaft, head] = Arrow(form, form.w);
  const double x = form.w - head, y = form.cy - shaft;
  form.upperHalf({{shaft * head / form.cy, form.cy}, {0, y}, {x, y}, {x, 0}, {form.w, form.cy}});
}

void stripedRightArrow(Form& form) {
  const auto [shaft, head] = Arrow(form, form.w * 27 / 32);
  const double x = form.w - head, y = form.cy - shaft, stripe = form.side / 32;
  form.rectangle(0, y, stripe, form.h - y).rectangle(2 * stripe, y, 4 * stripe, form.h - y);
  form.upperHalf({{5 * stripe, y}, {x, y}, {x, 0}, {form.w, form.cy}});
}

void homePlate(Form& form) {
  form.upperHalf({{0, 0}, {form.w - form.length(0, form.w), 0}, {form.w, form.cy}});
}

void chevron(Form& form) {
  const double tip = form.length(0, form.w);
  form.upperHalf({{tip, form.cy}, {0, 0}, {form.w - tip, 0}, {form.w, form.cy}});
}

void quadArrow(Form& form) {
  const auto [head, shaft] = SideArrow(form, form.side / 2);
  const double length = form.length(2, form.side / 2 - head);
  form.quarter({{0, form.cy},
                {length, form.cy - head},
                {length, form.cy - shaft},
                {form.cx - shaft, form.cy - shaft},
                {form.cx - shaft, length},
                {form.cx - head, length},
                {form.cx, 0}});
}

void leftRightUpArrow(Form& form) {
  const auto [head, shaft] = SideArrow(form, form.side / 2);
  const double length = form.length(2, form.side / 2 - head), y = form.h - head;
  form.leftHalf({{length, y + shaft},
                 {length, form.h},
                 {0, y},
                 {length, y - head},
                 {length, y - shaft},
                 {form.cx - shaft, y - shaft},
                 {form.cx - shaft, length},
                 {form.cx - head, length},
                 {form.cx, 0}});
}

void leftUpArrow(Form& form) {
  const auto [head, shaft] = SideArrow(form, form.side / 2);
  const double length = form.length(2, form.side - 2 * head), x = form.w - head, y = form.h - head;
  form.polygon({{0, y},
                {length, y - head},
                {length, y - shaft},
                {x - shaft, y - shaft},
                {x - shaft, length},
                {x - head, length},
                {x, 0},
                {form.w, length},
                {x + shaft, length},
                {x + shaft, y + shaft},
                {length, y + shaft},
                {length, form.h}});
}

void bentUpArrow(Form& form) {
  const double half = form.side / 2;
  const double thick = form.length(0, half), head = form.length(1, half), length = form.length(2, half);
  const double x = form.w - head, y = form.h - thick;
  form.polygon({{0, y},
                {x - thick / 2, y},
                {x - thick / 2, length},
                {x - head, length},
                {x, 0},
                {form.w, length},
                {x + thick / 2, length},
                {x + thick / 2, form.h},
                {0, form.h}});
}

void bentArrow(Form& form) {
  const auto [head, shaft] = SideArrow(form, form.side / 2);
  const double thick = 2 * shaft, x = form.w - form.length(2, form.side / 2), y = head - shaft;
  const double outer = form.length(3, std::min(x, form.h - y)), inner = std::max(outer - thick, 0.0);
  form.moveTo(0, form.h).lineTo(0, y + outer).arc(outer, outer, 180, 90).lineTo(x, y).lineTo(x, 0);
  form.lineTo(form.w, head).lineTo(x, 2 * head).lineTo(x, y + thick).lineTo(thick + inner, y + thick);
  form.arc(inner, inner, 270, -90).lineTo(thick, form.h).close();
}

void uturnArrow(Form& form) {
  const auto [head, shaft] = SideArrow(form, form.side / 4);
  const double thick = 2 * shaft, length = form.length(2, form.h - thick);
  const double tip = form.h * form.ratio(4, (length + thick) / form.h, 1), y = tip - length;
  const double right = form.w - head + shaft;  // of the shaft
  const double outer = form.length(3, std::min(right / 2, y)), inner = std::max(outer - thick, 0.0);
  form.moveTo(0, form.h).lineTo(0, outer).arc(outer, outer, 180, 90);
  form.lineTo(right - outer, 0).arc(outer, outer, 270, 90).lineTo(right, y).lineTo(form.w, y);
  form.lineTo(form.w - head, tip).lineTo(form.w - 2 * head, y).lineTo(right - thick, y);
  form.lineTo(right - thick, thick + inner).arc(inner, inner, 0, -90).lineTo(thick + inner, thick);
  form.arc(inner, inner, 270, -90).lineTo(thick, form.h).close();
}

void swooshArrow(Form& form) {
  const double thick = form.h * form.ratio(0, 0.00001, 0.75), head = form.length(1, form.w * 0.7);
  const double wing = form.side / 8, lean = 0.11267;  // the end of the shaft leans by a 14th of a right angle
  const double x = form.w - head, below = wing + thick;
  const Form::Point lower{x + thick * lean, below};
  const Form::Point barb{lower.x + wing * lean, below + wing};
  form.moveTo(0, form.h).quadTo(form.w / 6, form.h / 3, x, wing).lineTo(x - wing * lean, 0);
  form.lineTo(form.w, barb.y / 2 - form.h / 20).lineTo(barb.x, barb.y).lineTo(lower.x, lower.y);
  form.quadTo(form.w / 4, below + form.h / 12, 0, form.h).close();
}

void rightArrowCallout(Form& form) {
  const auto [head, shaft] = SideArrow(form, form.cy);
  const double length = form.length(2, form.w), x = form.w - length;
  const double box = form.w * form.ratio(3, 0, 1 - length / form.w);
  form.upperHalf({{0, 0},
                  {box, 0},
                  {box, form.cy - shaft},
                  {x, form.cy - shaft},
                  {x, form.cy - head},
                  {form.w, form.cy}});
}

void leftRightArrowCallout(Form& form) {
  const auto [head, shaft] = SideArrow(form, form.cy);
  const double length = form.length(2, form.cx);
  const double box = form.cx * (1 - form.ratio(3, 0, 1 - length / form.cx));
  form.quarter(
      {{0, form.cy}, {length, form.cy - head}, {length, form.cy - shaft}, {box, form.cy - shaft}, {box, 0}});
}

void quadArrowCallout(Form& form) {
  const auto [head, shaft] = SideArrow(form, form.side / 2);
  const double length = form.length(2, form.side / 2 - head);
  const double box = 1 - form.ratio(3, 2 * shaft / form.side, 1 - 2 * length / form.side);
  form.quarter({{0, form.cy},
                {length, form.cy - head},
                {length, form.cy - shaft},
                {form.cx * box, form.cy - shaft},
                {form.cx * box, form.cy * box},
                {form.cx - shaft, form.cy * box},
                {form.cx - shaft, length},
                {form.cx - head, length},
                {form.cx, 0}});
}

}  // namespace vellumark::deck::forms
