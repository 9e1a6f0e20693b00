// Pentagons and chevrons in a row: tips of one angle, and a closed chain.

#include <cmath>

#include "base/conversions.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/message.h"
#include "core/sort_collection.h"
#include "tools/host_age.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using base::toSingle;
using core::trap;
using host::Shape;
using Arrows = core::KeyedList<Shape>;

constexpr double pi = 3.14159265358979;

/// The first handle of an arrow, which gives its tip.
float tipHandle(const Shape& arrow) { return arrow.Adjustments().Item(1); }

/// In radians, as hosts up to 11.0 count the handle; only for them is it looked at.
double tipAngle(const Shape& master) {
  const float adjustment = tipHandle(master);
  if (adjustment == 1.0f) return pi;
  const double base = (1 - static_cast<double>(adjustment)) * master.Width();
  return std::atan(base::divide(static_cast<double>(master.Height()) / 2, base));
}

/// How far the tip reaches, in points.
double tipLength(const Shape& master) {
  switch (hostAge()) {
    case HostAge::old:
      return (1 - static_cast<double>(tipHandle(master))) * master.Width();
    case HostAge::new_:
      return static_cast<double>(tipHandle(master)) * master.Height();
    default:
      return 0;
  }
}

/// Gives an arrow the master's tip: the angle where the handle counts along the width, else the handle
/// itself.
void adjustTip(const Shape& arrow, const Shape& master, double angle) {
  const HostAge age = hostAge();
  if (age == HostAge::other) return;
  const float adjustment = tipHandle(master);
  if (age == HostAge::new_ || adjustment == 1.0f) {
    arrow.Adjustments().Item(1, adjustment);
    return;
  }
  const double length = base::divide(static_cast<double>(arrow.Height()) / 2, std::tan(angle));
  arrow.Adjustments().Item(1, toSingle(1 - base::divide(length, arrow.Width())));
}

/// Which way a chain flows, by the whole quarters in an arrow's rotation. Any other number flows nowhere.
enum Flow { toTheRight = 0, downwards = 1, toTheLeft = 2, upwards = 3 };
int flowOf(const Shape& arrow) { return base::toInt32(core::normalizeRotation(arrow)) / 90; }

void sortAlong(Arrows& arrows, int flow) {
  if (flow > upwards) return;
  const char* const property = flow == toTheRight || flow == toTheLeft ? "Left" : "Top";
  core::SortCollection(
      arrows, property, flow == toTheLeft || flow == upwards, "",
      [](const Shape& arrow, const std::string& name) { return host::getByName(arrow.object(), name); });
}

}  // namespace

void TrimlineTools::alignAngles() {
  trap("TrimlineTools, alignAngles", [&] {
    core::ApplicationEvents& watch = *core::globals().applicationEvents;
    watch.checkSelection();
    if (watch.flags().shapeCount < 2 || !watch.flags().allPentagons) {
      core::message("Please select two or more process arrows first.", ui::Icon::information);
      return;
    }
    const SelectedShapes shapes;
    const Shape master = shapes.master();
    const double angle = tipAngle(master);
    shapes.eachFollower([&](const Shape& s) { adjustTip(s, master, angle); });
  });
}

// The arrows keep their places along the flow; each body ends where the next arrow begins, and its tip
// reaches into the notch there. Widths are measured on the frame where the chain lies level, on the visual
// box where it stands upright.
void TrimlineTools::processChain() {
  trap("TrimlineTools, processChain", [&] {
    const SelectedShapes shapes;
    Arrows arrows;
    shapes.each([&](const Shape& s) { arrows.Add(s); });
    const Shape m = shapes.master();
    sortAlong(arrows, flowOf(shapes.item(1)));
    const double angle = tipAngle(m);
    const double tip = tipLength(m);
    for (int i = 1; i <= arrows.Count(); ++i) {
      const Shape& s = arrows.Item(i);
      const bool hasNext = i < arrows.Count();
      const Shape next = hasNext ? arrows.Item(i + 1) : Shape();
      s.Height(m.Height());
      switch (flowOf(arrows.Item(1))) {
        case toTheRight:
          if (hasNext) s.Width(toSingle(static_cast<double>(next.Left()) - s.Left() + tip));
          s.Top(m.Top());
          break;
        case downwards:
          if (hasNext) s.Width(toSingle(getTop(next) - getTop(s) + tip));
          setLeft(s, getLeft(m));
          break;
        case toTheLeft:
          if (hasNext) {
            s.Width(toSingle(static_cast<double>(s.Left()) + s.Width() - next.Left() - next.Width() + tip));
          }
          s.Top(m.Top());
          break;
        case upwards:
          if (hasNext) s.Width(toSingle(getTop(s) + getHeight(s) - getTop(next) - getHeight(next) + tip));
          setLeft(s, getLeft(m));
          break;
        default:
          break;
      }
      adjustTip(s, m, angle);
    }
  });
}

}  // namespace vellumark::tools
