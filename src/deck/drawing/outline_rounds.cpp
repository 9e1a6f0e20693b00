// Ellipses and their parts, and what is drawn by curves.

#include <algorithm>
#include <cmath>

#include "deck/drawing/ellipse_angle.h"
#include "deck/drawing/outline_forms.h"

namespace vellumark::deck::forms {
namespace {

/// An arc of the frame's ellipse that two guides tell by their directions.
struct Arc {
  explicit Arc(const Form& form) : start(form.direction(0)), sweep(form.direction(1) - start) {
    if (sweep <= 0) sweep += 360;
  }
  double start, sweep;
};

Form& along(Form& form, const Arc& arc) {
  return form.around({form.cx, form.cy}, form.cx, form.cy, arc.start, arc.sweep);
}

}  // namespace

void ellipse(Form& form) { form.ellipse({form.cx, form.cy}, form.cx, form.cy); }

void donut(Form& form) {
  const double width = form.length(0, form.side / 2);
  ellipse(form);
  form.ellipse({form.cx, form.cy}, form.cx - width, form.cy - width);
}

void arc(Form& form) {
  along(form.area(), Arc(form)).lineTo(form.cx, form.cy).close();
  along(form.lines(), Arc(form));
}

void pie(Form& form) { along(form, Arc(form)).lineTo(form.cx, form.cy).close(); }

void chord(Form& form) { along(form, Arc(form)).close(); }

void blockArc(Form& form) {
  const Arc outer(form);
  const double width = form.length(2, form.side / 2);
  along(form, outer);
  form.around({form.cx, form.cy}, form.cx - width, form.cy - width, outer.start + outer.sweep, -outer.sweep);
  form.close();
}

void pieWedge(Form& form) {
  form.moveTo(0, form.h).arc(form.w, form.h, 180, 90).lineTo(form.w, form.h).close();
}

/// A ring with a bar from the left top to the right bottom.
void noSmoking(Form& form) {
  const double width = form.length(0, form.side / 2);
  const double radiusX = form.cx - width, radiusY = form.cy - width;
  const double diagonal = directionOf(form.w, form.h);
  const Form::Point rim = onEllipse({}, radiusX, radiusY, ellipseParameter(diagonal, radiusX, radiusY));
  const double half = directionOf(std::hypot(rim.x, rim.y), width / 2);
  ellipse(form);
  for (const double start : {diagonal - half, diagonal - half - 180}) {
    form.around({form.cx, form.cy}, radiusX, radiusY, start, 2 * half - 180).close();
  }
}

void teardrop(Form& form) {
  const double reach = form.ratio(0, 0, 2);
  const double x = form.cx + form.cx * reach, y = form.cy - form.cy * reach;
  form.moveTo(0, form.cy).arc(form.cx, form.cy, 180, 90).quadTo((form.cx + x) / 2, 0, x, y);
  form.quadTo(form.w, (form.cy + y) / 2, form.w, form.cy).arc(form.cx, form.cy, 0, 180).close();
}

void heart(Form& form) {
  const double near = form.w * 10 / 48, far = form.w * 49 / 48, top = -form.h / 3, dent = form.h / 4;
  form.moveTo(form.cx, dent);
  form.curveTo(form.cx + near, top, form.cx + far, dent, form.cx, form.h);
  form.curveTo(form.cx - far, dent, form.cx - near, top, form.cx, dent).close();
}

/// Its inner side is a circle through the ends of the outer one and the place that the guide tells, when the
/// frame is stretched to be twice as high as wide.
void moon(Form& form) {
  const double inner = form.ratio(0, 0, 0.875), thick = 1 - inner;
  const double radius = (thick * thick + 1) / (2 * thick);
  const double centre = (inner + radius) * form.w;
  const double above = directionOf(form.w - centre, -form.cy), below = directionOf(form.w - centre, form.cy);
  form.moveTo(form.w, form.h).arc(form.w, form.cy, 90, 180);
  form.around({centre, form.cy}, radius * form.w, radius * form.cy, above, below - above - 360).close();
}

/// Eight rays around an ellipse, each with its tip on the frame's.
void sun(Form& form) {
  const double inner = 0.5 - form.ratio(0, 0.125, 0.46875);
  const Form::Point centre{form.cx, form.cy};
  for (int ray = 0; ray < 8; ++ray) {
    const double angle = 45.0 * ray;
    const auto foot = [&](double turned) {
      const Form::Point start = onEllipse(centre, form.w / 8, form.h / 8, angle);
      return onEllipse(start, form.w * inner * 0.75, form.h * inner * 0.75, angle + turned);
    };
    form.polygon({onEllipse(centre, form.cx, form.cy, angle), foot(-22.5), foot(22.5)});
  }
  form.ellipse(centre, form.w * inner, form.h * inner);
}

void smileyFace(Form& form) {
  const double w = form.w, h = form.h, smile = h * form.ratio(0, -0.04653, 0.04653), mouth = h * 0.764583;
  ellipse(form.area());
  form.shape(PathFill::darkenLess);
  for (const double eye : {0.339815, 0.660185}) {
    form.ellipse({w * eye, h * 0.350463}, w * 0.0520833, h * 0.0520833);
  }
  form.lines().moveTo(w * 0.228997, mouth - smile);
  form.quadTo(form.cx, mouth + 3 * smile, w * 0.77037, mouth - smile);
  ellipse(form.lines());
}

void can(Form& form) {
  const double lid = form.length(0, form.cy) / 2, w = form.w, bottom = form.h - lid;
  form.area().moveTo(0, lid).arc(form.cx, lid, 180, -180).lineTo(w, bottom).arc(form.cx, lid, 0, 180).close();
  form.area(PathFill::lighten).ellipse({form.cx, lid}, form.cx, lid);
  form.lines().moveTo(w, lid).arc(form.cx, lid, 0, 360).lineTo(w, bottom).arc(form.cx, lid, 0, 180);
  form.lineTo(0, lid);
}

void funnel(Form& form) {
  const double rim = form.side / 20, radiusX = form.cx, radiusY = form.h / 4;
  const Form::Point left = onEllipse({form.cx, radiusY}, radiusX, radiusY, 172);
  const Form::Point spout = onEllipse({form.cx, form.h - radiusY / 4}, radiusX / 4, radiusY / 4, 8);
  form.moveTo(left.x, left.y).arc(radiusX, radiusY, 172, 196);
  form.lineTo(spout.x, spout.y).arc(radiusX / 4, radiusY / 4, 8, 164).close();
  form.ellipse({form.cx, radiusY}, radiusX - rim, radiusY - rim);
}

/// Waves run along the top and the bottom; the second guide moves the one against the other.
void wave(Form& form, int waves) {
  const double crest = form.h * form.ratio(0, 0, waves == 1 ? 0.2 : 0.125), swing = crest * 10 / 3;
  const double shift = 2 * form.w * form.ratio(1, -0.1, 0.1), length = (form.w - std::abs(shift)) / waves;
  double x = std::max(-shift, 0.0), y = crest;
  form.moveTo(x, y);
  for (int i = 0; i < waves; ++i, x += length) {
    form.curveTo(x + length / 3, y - swing, x + length * 2 / 3, y + swing, x + length, y);
  }
  x += shift;
  y = form.h - crest;
  form.lineTo(x, y);
  for (int i = 0; i < waves; ++i, x -= length) {
    form.curveTo(x - length / 3, y + swing, x - length * 2 / 3, y - swing, x - length, y);
  }
  form.close();
}

}  // namespace vellumark::deck::forms
