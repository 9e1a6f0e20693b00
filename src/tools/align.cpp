// Aligning, stretching and moving the followers of a selection to its master.

#include <cmath>

#include "core/failure.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;
using host::Shape;

}  // namespace

TrimlineTools::Mode TrimlineTools::opposite(Mode mode) {
  switch (mode) {
    case Mode::left:
      return Mode::right;
    case Mode::right:
      return Mode::left;
    case Mode::top:
      return Mode::bottom;
    default:
      return Mode::top;
  }
}

void TrimlineTools::align(Mode mode) {
  trap("TrimlineTools, align", [&] {
    const SelectedShapes shapes;
    const Shape m = shapes.master();
    shapes.eachFollower([&](const Shape& s) {
      switch (mode) {
        case Mode::left:
          return setLeft(s, getLeft(m));
        case Mode::center:
          return setLeft(s, getLeft(m) + getWidth(m) / 2 - getWidth(s) / 2);
        case Mode::right:
          return setLeft(s, getLeft(m) + getWidth(m) - getWidth(s));
        case Mode::top:
          return setTop(s, getTop(m));
        case Mode::middle:
          return setTop(s, getTop(m) + getHeight(m) / 2 - getHeight(s) / 2);
        case Mode::bottom:
          return setTop(s, getTop(m) + getHeight(m) - getHeight(s));
        default:
          return;
      }
    });
  });
}

void TrimlineTools::alignSizes(Mode mode) {
  trap("TrimlineTools, alignSizes", [&] {
    const SelectedShapes shapes;
    const Shape m = shapes.master();
    shapes.eachFollower([&](const Shape& s) {
      if (mode == Mode::height || mode == Mode::widthAndHeight) setHeight(s, getHeight(m));
      if (mode == Mode::width || mode == Mode::widthAndHeight) setWidth(s, getWidth(m));
    });
  });
}

// Each follower's centre goes to the golden section of the master's height, measured from its top. The
// location is that of align.
void TrimlineTools::alignVerticallyInGoldenSection() {
  trap("TrimlineTools, align", [&] {
    const double section = 2 / (std::sqrt(5.0) + 3);
    const SelectedShapes shapes;
    const Shape m = shapes.master();
    shapes.eachFollower([&](const Shape& s) {  //
      setTop(s, getTop(m) + getHeight(m) * section - getHeight(s) / 2);
    });
  });
}

/// By how much a follower grows whose edge `mode` goes to the master's edge `target`. The order of the sums
/// counts: what is docked already comes out as 0 and no rest of a rounding.
double TrimlineTools::growth(Mode mode, Mode target, const RotatedMetrics& s, const RotatedMetrics& m) {
  const bool same = mode == target;
  switch (mode) {
    case Mode::left:
      return same ? s.Left - m.Left : s.Left - m.Left - m.Width;
    case Mode::right:
      return (same ? m.Width + m.Left : m.Left) - s.Left - s.Width;
    case Mode::top:
      return same ? s.Top - m.Top : s.Top - m.Top - m.Height;
    default:
      return (same ? m.Height + m.Top : m.Top) - s.Top - s.Height;
  }
}

// Each follower's edge `mode` goes to the master's edge `target`; the opposite edge stays.
void TrimlineTools::stretchTo(Mode mode, Mode target) {
  const SelectedShapes shapes;
  const RotatedMetrics master = getRotatedMetrics(shapes.master());
  shapes.eachFollower([&](const Shape& s) {
    const RotatedMetrics box = getRotatedMetrics(s);
    const double delta = growth(mode, target, box, master);
    switch (mode) {
      case Mode::left:
        return spanHorizontally(s, box.Left - delta, box.Width + delta);
      case Mode::right:
        return spanHorizontally(s, box.Left, box.Width + delta);
      case Mode::top:
        return spanVertically(s, box.Top - delta, box.Height + delta);
      case Mode::bottom:
        return spanVertically(s, box.Top, box.Height + delta);
      default:
        return;
    }
  });
}

void TrimlineTools::stretch(Mode mode) {
  trap("TrimlineTools, stretch", [&] { stretchTo(mode, mode); });
}

void TrimlineTools::stretchToMaster(Mode mode) {
  trap("TrimlineTools, stretchToMaster", [&] { stretchTo(mode, opposite(mode)); });
}

void TrimlineTools::moveToMaster(Mode mode) {
  trap("TrimlineTools, moveToMaster", [&] {
    const SelectedShapes shapes;
    const Shape m = shapes.master();
    shapes.eachFollower([&](const Shape& s) {
      switch (mode) {
        case Mode::left:
          return setLeft(s, getLeft(m) + getWidth(m));
        case Mode::right:
          return setLeft(s, getLeft(m) - getWidth(s));
        case Mode::top:
          return setTop(s, getTop(m) + getHeight(m));
        case Mode::bottom:
          return setTop(s, getTop(m) - getHeight(s));
        default:
          return;
      }
    });
  });
}

// The size is set first and the position second, since the setters of sizes may shift the frame. The position
// also follows where the setter refused a turned shape.
void TrimlineTools::spanHorizontally(const Shape& shape, double left, double width) {
  if (width <= 0) return;
  setWidth(shape, width);
  setLeft(shape, left);
}

void TrimlineTools::spanVertically(const Shape& shape, double top, double height) {
  if (height <= 0) return;
  setHeight(shape, height);
  setTop(shape, top);
}

// The public commands, each a procedure with a fixed mode.

void TrimlineTools::alignLefts() {
  trap("TrimlineTools, alignLefts", [&] { align(Mode::left); });
}

void TrimlineTools::alignCenters() {
  trap("TrimlineTools, alignCenters", [&] { align(Mode::center); });
}

void TrimlineTools::alignRights() {
  trap("TrimlineTools, alignRights", [&] { align(Mode::right); });
}

void TrimlineTools::alignTops() {
  trap("TrimlineTools, alignTops", [&] { align(Mode::top); });
}

void TrimlineTools::alignMiddles() {
  trap("TrimlineTools, alignMiddles", [&] { align(Mode::middle); });
}

void TrimlineTools::alignBottoms() {
  trap("TrimlineTools, alignBottoms", [&] { align(Mode::bottom); });
}

void TrimlineTools::alignWidths() {
  trap("TrimlineTools, alignWidths", [&] { alignSizes(Mode::width); });
}

void TrimlineTools::alignHeights() {
  trap("TrimlineTools, alignHeights", [&] { alignSizes(Mode::height); });
}

void TrimlineTools::alignWidthsAndHeights() {
  trap("TrimlineTools, alignWidthsAndHeights", [&] { alignSizes(Mode::widthAndHeight); });
}

void TrimlineTools::stretchLeft() {
  trap("TrimlineTools, stretchLeft", [&] { stretch(Mode::left); });
}

void TrimlineTools::stretchRight() {
  trap("TrimlineTools, stretchRight", [&] { stretch(Mode::right); });
}

void TrimlineTools::stretchTop() {
  trap("TrimlineTools, stretchTop", [&] { stretch(Mode::top); });
}

void TrimlineTools::stretchBottom() {
  trap("TrimlineTools, stretchBottom", [&] { stretch(Mode::bottom); });
}

void TrimlineTools::moveLeftToMasterRight() {
  trap("TrimlineTools, moveLeftToMasterRight", [&] { moveToMaster(Mode::left); });
}

void TrimlineTools::moveRightToMasterLeft() {
  trap("TrimlineTools, moveRightToMasterLeft", [&] { moveToMaster(Mode::right); });
}

void TrimlineTools::moveTopToMasterBottom() {
  trap("TrimlineTools, moveTopToMasterBottom", [&] { moveToMaster(Mode::top); });
}

void TrimlineTools::moveBottomToMasterTop() {
  trap("TrimlineTools, moveBottomToMasterTop", [&] { moveToMaster(Mode::bottom); });
}

void TrimlineTools::stretchLeftToMasterRight() {
  trap("TrimlineTools, stretchLeftToMasterRight", [&] { stretchToMaster(Mode::left); });
}

void TrimlineTools::stretchRightToMasterLeft() {
  trap("TrimlineTools, stretchRightToMasterLeft", [&] { stretchToMaster(Mode::right); });
}

void TrimlineTools::stretchTopToMasterBottom() {
  trap("TrimlineTools, stretchTopToMasterBottom", [&] { stretchToMaster(Mode::top); });
}

void TrimlineTools::stretchBottomToMasterTop() {
  trap("TrimlineTools, stretchBottomToMasterTop", [&] { stretchToMaster(Mode::bottom); });
}

}  // namespace vellumark::tools
