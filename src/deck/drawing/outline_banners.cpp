// Ribbons and scrolls.

#include <algorithm>

#include "deck/drawing/outline_forms.h"

namespace vellumark::deck::forms {

/// The ends of the ribbon hang behind its middle part, which lies lower by a fold.
void ribbon(Form& form) {
  const double w = form.w, h = form.h, drop = h * form.ratio(0, 0, 0.33333), curl = w / 32, round = drop / 4;
  const double left = form.cx - form.cx * form.ratio(1, 0.25, 0.75);  // of the middle part
  const double outer = left + 3 * curl, inner = left + curl, back = left + 4 * curl, end = h - drop;
  const auto border = [&](Form& f) {
    f.moveTo(0, 0).lineTo(outer, 0).arc(curl, round, 270, 180).lineTo(inner, drop / 2);
    f.arc(curl, round, 270, -180).lineTo(w - inner, drop).arc(curl, round, 90, -180);
    f.lineTo(w - outer, drop / 2).arc(curl, round, 90, 180).lineTo(w, 0);
    f.lineTo(w * 7 / 8, end / 2).lineTo(w, end).lineTo(w - left, end).lineTo(w - left, h - round);
    f.arc(curl, round, 0, 90).lineTo(inner, h).arc(curl, round, 90, 90).lineTo(left, end);
    f.lineTo(0, end).lineTo(w / 8, end / 2).close();
  };
  const auto fold = [&](Form& f) {
    f.moveTo(back, round).arc(curl, round, 0, 90).lineTo(inner, drop / 2).arc(curl, round, 270, -180);
    f.lineTo(back, drop).close();
  };
  const auto edges = [&](Form& f) {
    f.polyline({{back, round}, {back, drop}}).polyline({{left, end}, {left, drop - round}});
  };
  border(form.area());
  fold(form.area(PathFill::darkenLess));
  form.mirror(fold);
  border(form.lines());
  edges(form);
  form.mirror(edges);
}

/// The same, bent along a parabola that goes through the upper corners of the frame.
void ellipseRibbon(Form& form) {
  const double w = form.w, h = form.h, height = form.ratio(0, 0, 1);
  const double bow = h * pin(std::max(0.0, height - (1 - height) / 2), form.ratio(2), height);
  const double drop = h * height, below = h - drop;
  const double left = form.cx - form.cx * form.ratio(1, 0.25, 0.75), back = left + w / 8;
  const auto parabola = [&](double x) { return 4 * bow / w * (x - x * x / w); };
  const auto tangent = [&](double x) { return 4 * bow / w * x; };  // at the left corner
  const double front = parabola(left) + drop - bow, middle = 2 * drop - front, end = parabola(back);
  const double notch = (bow * 14 / 16 + below) / 2;
  const auto fold = [&](Form& f) {
    f.lineTo(left, front).quadTo(form.cx, middle, w - left, front).lineTo(w - back, end);
  };
  const auto border = [&](Form& f) {
    f.moveTo(0, 0).quadTo(back / 2, tangent(back / 2), back, end);
    fold(f);
    f.quadTo(w - back / 2, tangent(back / 2), w, 0).lineTo(w * 7 / 8, notch).lineTo(w, below);
    f.quadTo(w - left / 2, tangent(left / 2) + below, w - left, parabola(left) + below);
    f.lineTo(w - left, front + below).quadTo(form.cx, middle + below, left, front + below);
    f.lineTo(left, parabola(left) + below).quadTo(left / 2, tangent(left / 2) + below, 0, below);
    f.lineTo(w / 8, notch).close();
  };
  const double hidden = end + drop - bow;  // where the back of the fold ends
  const auto edges = [&](Form& f) {
    f.polyline({{left, parabola(left) + below}, {left, front}}).polyline({{back, end}, {back, hidden}});
  };
  border(form.area());
  form.area(PathFill::darkenLess).moveTo(back, hidden).lineTo(back, end);
  fold(form);
  form.lineTo(w - back, hidden).quadTo(form.cx, 2 * drop - hidden, back, hidden).close();
  border(form.lines());
  edges(form);
  form.mirror(edges);
}

/// Two arrows, the right one lower, joined by a fold in the middle.
void leftRightRibbon(Form& form) {
  const double w = form.w, h = form.h, offset = form.ratio(2, 0, 0.33333);
  const double half = form.cy * form.ratio(0, 0, 1 - offset), curl = w / 32;
  const double head = form.length(1, form.cx - curl), round = form.side * offset / 4;
  const double point = h * (1 - offset) / 2, top = point - half, bottom = point + half;
  const auto border = [&](Form& f) {
    f.moveTo(0, point).lineTo(head, 0).lineTo(head, top).lineTo(form.cx, top);
    f.arc(curl, round, 270, 180).arc(curl, round, 270, -180).lineTo(w - head, h - bottom);
    f.lineTo(w - head, h - 2 * point).lineTo(w, h - point).lineTo(w - head, h).lineTo(w - head, h - top);
    f.lineTo(form.cx, h - top).arc(curl, round, 90, 90).lineTo(form.cx - curl, bottom);
    f.lineTo(head, bottom).lineTo(head, 2 * point).close();
  };
  const double right = form.cx + curl;
  border(form.area());
  form.area(PathFill::darkenLess).moveTo(right, top + round).arc(curl, round, 0, 90);
  form.arc(curl, round, 270, -180).lineTo(right, h - bottom).close();
  border(form.lines());
  form.polyline({{right, top + round}, {right, h - bottom}});
  form.polyline({{form.cx - curl, h - bottom - round}, {form.cx - curl, bottom}});
}

/// Rolled up at both sides: to the back on the left, to the front on the right.
void horizontalScroll(Form& form) {
  const double w = form.w, h = form.h, roll = form.length(0, form.side / 4), half = roll / 2;
  const double right = w - roll, bottom = h - roll;
  const auto innerRoll = [&](Form& f) {  // on the left
    f.moveTo(half, 2 * roll).arc(half, half, 90, -90).arc(half / 2, half / 2, 0, -180).close();
  };
  form.area().moveTo(w, half).arc(half, half, 0, 90).lineTo(w - half, half);
  form.arc(half / 2, half / 2, 0, 180).lineTo(right, roll).lineTo(half, roll).arc(half, half, 270, -90);
  form.lineTo(0, h - half).arc(half, half, 180, -180).lineTo(roll, bottom).lineTo(w - half, bottom);
  form.arc(half, half, 90, -90).close();
  innerRoll(form);
  innerRoll(form.area(PathFill::darkenLess));
  form.moveTo(w - half, roll).arc(half, half, 90, -270).arc(half / 2, half / 2, 180, -180).close();

  form.lines().moveTo(0, roll + half).arc(half, half, 180, 90).lineTo(right, roll).lineTo(right, half);
  form.arc(half, half, 180, 180).lineTo(w, bottom - half).arc(half, half, 0, 90).lineTo(roll, bottom);
  form.lineTo(roll, h - half).arc(half, half, 0, 180).close();
  form.moveTo(right, roll).lineTo(w - half, roll).arc(half, half, 90, -90);
  form.moveTo(w - half, roll).lineTo(w - half, half).arc(half / 2, half / 2, 0, 180);
  form.moveTo(half, 2 * roll).lineTo(half, roll + half).arc(half / 2, half / 2, 180, 180);
  form.arc(half, half, 0, 180).moveTo(roll, roll + half).lineTo(roll, bottom);
}

}  // namespace vellumark::deck::forms
