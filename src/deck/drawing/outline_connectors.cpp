// Lines and connectors.

#include "deck/drawing/outline_forms.h"

namespace vellumark::deck::forms {
namespace {

/// The corners of an elbow connector that ends so many turns after its start. Its guides tell where the
/// inner legs lie, in turn across and along.
std::vector<Form::Point> route(const Form& form, int legs) {
  std::vector<Form::Point> points{{0, 0}};
  for (int leg = 1; leg < legs; ++leg) {
    Form::Point next = points.back();
    const auto guide = static_cast<std::size_t>(leg - 1);
    const bool last = leg == legs - 1;
    if (leg % 2 != 0) next.x = last ? form.w : form.w * form.ratio(guide);
    if (leg % 2 == 0) next.y = last ? form.h : form.h * form.ratio(guide);
    points.push_back(next);
  }
  points.push_back({form.w, form.h});
  return points;
}

Form::Point between(Form::Point a, Form::Point b) { return {(a.x + b.x) / 2, (a.y + b.y) / 2}; }

}  // namespace

void line(Form& form) { form.gridPolyline(1, {{0, 0}, {1, 1}}); }

void bentConnector(Form& form, int legs) { form.lines().polyline(route(form, legs)); }

/// From the middle of each leg to the middle of the next one.
void curvedConnector(Form& form, int legs) {
  const std::vector<Form::Point> points = route(form, legs);
  Form::Point from = points.front();
  form.lines().moveTo(from.x, from.y);
  for (std::size_t i = 1; i + 1 < points.size(); ++i) {
    const Form::Point corner = points[i];
    const Form::Point to = i + 2 < points.size() ? between(corner, points[i + 1]) : points.back();
    const Form::Point control1 = between(from, corner), control2 = between(corner, to);
    form.curveTo(control1.x, control1.y, control2.x, control2.y, to.x, to.y);
    from = to;
  }
}

}  // namespace vellumark::deck::forms
