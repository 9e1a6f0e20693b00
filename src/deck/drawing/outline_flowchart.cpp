// The symbols of flow charts.

#include "deck/drawing/ellipse_angle.h"
#include "deck/drawing/outline_forms.h"

namespace vellumark::deck::forms {
namespace {

/// A symbol with lines inside: its area, the lines, and its border around all.
template <typename Border, typename Inside>
void withInside(Form& form, Border border, Inside inside) {
  border(form.area());
  inside(form.lines());
  border(form.lines());
}

void wholeFrame(Form& form) { form.frame(); }

/// A sheet that stands out behind another one, whose corner is at (hideX, hideY); all in percent. To fill it,
/// it is closed along the other sheet.
void sheetBehind(Form& form, Form::Point leftTop, Form::Point rightBottom, Form::Point hide, double end,
                 bool filled) {
  const double x = form.w / 100, y = form.h / 100, right = rightBottom.x * x, bottom = rightBottom.y * y;
  form.moveTo(leftTop.x * x, hide.y * y).lineTo(leftTop.x * x, leftTop.y * y).lineTo(right, leftTop.y * y);
  form.lineTo(right, bottom);
  form.curveTo((rightBottom.x + hide.x) / 2 * x, bottom, hide.x * x, end * y, hide.x * x, end * y);
  if (filled) form.lineTo(hide.x * x, hide.y * y).close();
}

void sheets(Form& form, bool filled) {
  const double w = form.w, h = form.h, right = w * 0.86088, bottom = h * 0.83435;
  form.moveTo(0, h * 0.96213).curveTo(w * 0.43046, h * 1.08991, w * 0.43046, bottom, right, bottom);
  form.lineTo(right, h * 0.17014).lineTo(0, h * 0.17014).close();
  sheetBehind(form, {7.093, 8.403}, {92.593, 75.241}, {86.088, 17.014}, 75.704, filled);
  sheetBehind(form, {13.759, 0}, {100, 66.63}, {92.593, 8.403}, 66.977, filled);
}

}  // namespace

void flowChartInputOutput(Form& form) { form.gridPolygon(5, {{0, 5}, {1, 0}, {5, 0}, {4, 5}}); }
void flowChartManualInput(Form& form) { form.gridPolygon(5, {{0, 1}, {5, 0}, {5, 5}, {0, 5}}); }
void flowChartManualOperation(Form& form) { form.gridPolygon(5, {{0, 0}, {5, 0}, {4, 5}, {1, 5}}); }
void flowChartPunchedCard(Form& form) { form.gridPolygon(5, {{0, 1}, {1, 0}, {5, 0}, {5, 5}, {0, 5}}); }
void flowChartCollate(Form& form) { form.gridPolygon(2, {{0, 0}, {2, 0}, {1, 1}, {2, 2}, {0, 2}, {1, 1}}); }
void flowChartExtract(Form& form) { form.gridPolygon(2, {{0, 2}, {1, 0}, {2, 2}}); }
void flowChartMerge(Form& form) { form.gridPolygon(2, {{0, 0}, {2, 0}, {1, 2}}); }
void flowChartOffpageConnector(Form& form) {
  form.gridPolygon(10, {{0, 0}, {10, 0}, {10, 8}, {5, 10}, {0, 8}});
}
void flowChartPreparation(Form& form) {
  form.gridPolygon(10, {{0, 5}, {2, 0}, {8, 0}, {10, 5}, {8, 10}, {2, 10}});
}

void flowChartOfflineStorage(Form& form) {
  withInside(form, flowChartMerge, [](Form& f) { f.gridPolyline(5, {{2, 4}, {3, 4}}); });
}
void flowChartSort(Form& form) {
  withInside(form, diamond, [](Form& f) { f.gridPolyline(2, {{0, 1}, {2, 1}}); });
}
void flowChartInternalStorage(Form& form) {
  withInside(form, wholeFrame, [](Form& f) {
    f.gridPolyline(8, {{1, 0}, {1, 8}}).gridPolyline(8, {{0, 1}, {8, 1}});
  });
}
void flowChartPredefinedProcess(Form& form) {
  withInside(form, wholeFrame, [](Form& f) {
    f.gridPolyline(8, {{1, 0}, {1, 8}}).gridPolyline(8, {{7, 0}, {7, 8}});
  });
}
void flowChartOr(Form& form) {
  withInside(form, ellipse, [](Form& f) {
    f.gridPolyline(2, {{1, 0}, {1, 2}}).gridPolyline(2, {{0, 1}, {2, 1}});
  });
}
void flowChartSummingJunction(Form& form) {
  withInside(form, ellipse, [](Form& f) {
    const auto [x, y] = onEllipse({f.cx, f.cy}, f.cx, f.cy, 45);
    f.polyline({{f.w - x, f.h - y}, {x, y}}).polyline({{x, f.h - y}, {f.w - x, y}});
  });
}

void flowChartMagneticDisk(Form& form) {
  const double lid = form.h / 6, bottom = form.h - lid;
  const auto side = [&](Form& f) {
    f.moveTo(0, lid).arc(f.cx, lid, 180, 180).lineTo(f.w, bottom).arc(f.cx, lid, 0, 180).close();
  };
  withInside(form, side, [&](Form& f) { f.moveTo(f.w, lid).arc(f.cx, lid, 0, 180); });
}

void flowChartMagneticDrum(Form& form) {
  const double lid = form.w / 6, right = form.w - lid;
  const auto side = [&](Form& f) {
    f.moveTo(lid, 0).lineTo(right, 0).arc(lid, f.cy, 270, 180).lineTo(lid, f.h);
    f.arc(lid, f.cy, 90, 180).close();
  };
  withInside(form, side, [&](Form& f) { f.moveTo(right, f.h).arc(lid, f.cy, 90, 180); });
}

/// A circle that runs out into a straight foot to the right.
void flowChartMagneticTape(Form& form) {
  const double foot = onEllipse({form.cx, form.cy}, form.cx, form.cy, 45).y;
  form.moveTo(form.cx, form.h).arc(form.cx, form.cy, 90, 270);
  form.around({form.cx, form.cy}, form.cx, form.cy, 0, directionOf(form.w, form.h));
  form.lineTo(form.w, foot).lineTo(form.w, form.h).close();
}

void flowChartDelay(Form& form) {
  form.moveTo(0, 0).lineTo(form.cx, 0).arc(form.cx, form.cy, 270, 180).lineTo(0, form.h).close();
}

void flowChartDisplay(Form& form) {
  const double part = form.w / 6;
  form.moveTo(0, form.cy).lineTo(part, 0).lineTo(form.w - part, 0).arc(part, form.cy, 270, 180);
  form.lineTo(part, form.h).close();
}

void flowChartOnlineStorage(Form& form) {
  const double part = form.w / 6;
  form.moveTo(part, 0).lineTo(form.w, 0).arc(part, form.cy, 270, -180).lineTo(part, form.h);
  form.arc(part, form.cy, 90, 180).close();
}

void flowChartTerminator(Form& form) {
  const double round = form.w * 0.16088;
  form.moveTo(round, 0).lineTo(form.w - round, 0).arc(round, form.cy, 270, 180).lineTo(round, form.h);
  form.arc(round, form.cy, 90, 180).close();
}

void flowChartPunchedTape(Form& form) {
  const double x = form.w / 4, y = form.h / 10;
  form.moveTo(0, y).arc(x, y, 180, -180).arc(x, y, 180, 180).lineTo(form.w, form.h - y);
  form.arc(x, y, 0, -180).arc(x, y, 0, 180).close();
}

void flowChartDocument(Form& form) {
  form.moveTo(0, 0).lineTo(form.w, 0).lineTo(form.w, form.h * 0.80194);
  form.curveTo(form.cx, form.h * 0.80194, form.cx, form.h * 1.1075, 0, form.h * 0.93389).close();
}

void flowChartMultidocument(Form& form) {
  sheets(form.area(), true);
  sheets(form.lines(), false);
}

}  // namespace vellumark::deck::forms
