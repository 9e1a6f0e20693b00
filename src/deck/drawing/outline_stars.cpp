// Stars, explosions, gears, the lightning and the cloud.

#include <algorithm>
#include <cmath>

#include "deck/drawing/ellipse_angle.h"
#include "deck/drawing/outline_forms.h"

namespace vellumark::deck::forms {
namespace {

using Point = Form::Point;

/// An ellipse as shares of the frame in percent, and a part of it by its parameters.
struct CloudArc {
  double x, y, radiusX, radiusY, start, end;
};

void draw(Form& form, const CloudArc& arc, bool goesOn) {
  const double radiusX = arc.radiusX / 100 * form.w, radiusY = arc.radiusY / 100 * form.h;
  const Point start = onEllipse({arc.x / 100 * form.w, arc.y / 100 * form.h}, radiusX, radiusY, arc.start);
  goesOn ? form.lineTo(start.x, start.y) : form.moveTo(start.x, start.y);
  form.arc(radiusX, radiusY, arc.start, arc.end - arc.start);
}

}  // namespace

/// The first guide is the radius of the inner points as share of the whole width.
void star(Form& form, int points, double stretchX, double stretchY) {
  const double inner = 2 * form.ratio(0, 0, 0.5), radiusX = form.cx * stretchX, radiusY = form.cy * stretchY;
  const double step = 180.0 / points;
  std::vector<Point> places;
  for (int i = 0; i < points; ++i) {
    const double angle = -90 + 2 * i * step;
    places.push_back(onEllipse({form.cx, radiusY}, radiusX, radiusY, angle));
    places.push_back(onEllipse({form.cx, radiusY}, radiusX * inner, radiusY * inner, angle + step));
  }
  form.polygon(places);
}

void irregularSeal1(Form& form) {
  form.gridPolygon(
      100, {{50, 26.85},    {67.23, 0},   {65.53, 24.65}, {85.09, 20.63}, {77.32, 33.87}, {97.67, 37.67},
            {81.51, 48.5},  {100, 61.53}, {77.95, 59.92}, {84, 83.77},    {64.91, 66.93}, {61.33, 91.38},
            {48.76, 69.14}, {39.28, 100}, {35.72, 72.35}, {22.05, 81.56}, {26.24, 64.52}, {0.62, 67.53},
            {17.23, 54.51}, {0, 39.88},   {21.42, 35.26}, {1.71, 10.62},  {33.85, 29.26}, {38.67, 10.62}});
}

void irregularSeal2(Form& form) {
  form.gridPolygon(
      100, {{53.06, 20.1},  {68.47, 0},     {67.25, 26.75}, {83.37, 14.69}, {75.83, 30.24}, {100, 30.76},
            {78.63, 43.53}, {84.58, 52.27}, {75.83, 56.99}, {87.39, 72.37}, {67.78, 66.44}, {69.18, 80.42},
            {56.39, 73.77}, {53.76, 87.23}, {45.7, 80.42},  {40.28, 91.26}, {34.85, 83.91}, {22.76, 100},
            {22.25, 84.44}, {5.95, 82.52},  {15.42, 71.16}, {0, 59.62},     {18.22, 53.67}, {5.43, 38.29},
            {24.87, 36.19}, {20.84, 16.78}, {39.58, 29.55}, {45.01, 8.74}});
}

void lightningBolt(Form& form) {
  form.gridPolygon(100, {{39.22, 0},
                         {59.54, 28.15},
                         {51.16, 31.47},
                         {76.75, 55.59},
                         {68.37, 59.62},
                         {100, 100},
                         {46.35, 69.05},
                         {56.58, 64.75},
                         {23.25, 44.93},
                         {35.19, 38.81},
                         {0, 18.01}});
}

/// The teeth stand on an ellipse, each with its foot between two parameters of it and narrower at its end.
void gear(Form& form, int teeth, double mostTaper) {
  const double height = form.side * form.ratio(0, 0, 0.2), taper = form.side * form.ratio(1, 0, mostTaper);
  const double radiusX = form.cx - height, radiusY = form.cy - height;
  const double half = directionOf(std::min(radiusX, radiusY), (height + taper) / 2);
  const double step = 360.0 / teeth;
  for (int i = 0; i < teeth; ++i) {
    const double angle = -90 + step * i;
    const Point from = onEllipse({form.cx, form.cy}, radiusX, radiusY, angle - half);
    const Point to = onEllipse({form.cx, form.cy}, radiusX, radiusY, angle + half);
    const double length = std::max(std::hypot(to.x - from.x, to.y - from.y), 1e-9);
    const Point along{(to.x - from.x) / length, (to.y - from.y) / length};
    const Point out{along.y * height, -along.x * height};
    i == 0 ? form.moveTo(from.x, from.y) : form.lineTo(from.x, from.y);
    form.lineTo(from.x + along.x * taper + out.x, from.y + along.y * taper + out.y);
    form.lineTo(to.x - along.x * taper + out.x, to.y - along.y * taper + out.y);
    form.lineTo(to.x, to.y).arc(radiusX, radiusY, angle + half, step - 2 * half);
  }
  form.close();
}

void cloudBody(Form& form) {
  constexpr CloudArc bulges[] = {
      {24.517, 30.397, 15.632, 21.273, 172.25, 300.37}, {43.322, 19.933, 12.345, 16.822, 207.98, 314.55},
      {61.023, 14.088, 10.104, 13.762, 206.51, 322.67}, {77.634, 15.614, 11.243, 15.266, 220.29, 349.79},
      {85.456, 29.152, 12.345, 16.836, 285.23, 383.21}, {84.364, 48.787, 15.683, 21.343, 322.47, 441.86},
      {73.193, 69.768, 13.391, 18.211, 0.46, 121.98},   {51.143, 79.035, 15.630, 21.331, 16.85, 146.24},
      {28.942, 69.972, 17.870, 24.405, 58.99, 150.19},  {12.261, 68.501, 10.093, 13.699, 83.31, 223.11},
      {9.975, 47.264, 10.058, 13.762, 120.35, 264.11}};
  for (const CloudArc& bulge : bulges) draw(form, bulge, &bulge != bulges);
  form.close();
}

/// The bulges go on a little way inside the cloud.
void cloudCreases(Form& form) {
  constexpr CloudArc creases[] = {
      {10.082, 46.875, 10.058, 13.762, 85.55, 120.35},  {12.295, 68.062, 10.093, 13.699, 68.24, 83.31},
      {51.137, 78.631, 15.630, 21.331, 146.24, 158.47}, {51.153, 78.680, 15.630, 21.331, 4.74, 16.85},
      {73.138, 69.506, 13.391, 18.211, 295.97, 360.46}, {85.409, 28.907, 12.345, 16.836, 23.21, 49.64},
      {77.648, 15.267, 11.243, 15.266, 349.79, 360.82}, {77.604, 15.289, 11.243, 15.266, 203.72, 220.29},
      {61.126, 13.852, 10.104, 13.762, 192.27, 206.51}, {24.505, 30.373, 15.632, 21.273, 300.37, 314.27},
      {24.517, 30.397, 15.632, 21.273, 163.19, 172.25}};
  form.lines();
  for (const CloudArc& crease : creases) draw(form, crease, false);
}

void cloud(Form& form) {
  cloudBody(form.shape());
  cloudCreases(form);
}

}  // namespace vellumark::deck::forms
