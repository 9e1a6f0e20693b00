// Aligning, stretching and moving the followers of a selection to its master.

#include <cmath>

#include "core/failure.h"
#include "core/globals.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;
using host::Shape;

/// Runs `step(master, follower)` for each follower of the selection, in the order of selecting.
template <typename Step>
void forEachFollower(Step&& step) {
  const host::ShapeRange range = core::globals().powerPointApp.ActiveWindow().Selection().ShapeRange();
  const int count = range.Count();
  const Shape master = range.Item(count);
  for (int i = 1; i < count; ++i) step(master, range.Item(i));
}

}  // namespace

void TrimlineTools::align(Mode mode) {
  trap("TrimlineTools, align", [&] {
    forEachFollower([&](const Shape& m, const Shape& s) {
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
    forEachFollower([&](const Shape& m, const Shape& s) {
      if (mode == Mode::height || mode == Mode::widthAndHeight) setHeight(s, getHeight(m));
      if (mode == Mode::width || mode == Mode::widthAndHeight) setWidth(s, getWidth(m));
    });
  });
}

/// Each follower's centre goes to the golden section of the master's height, measured from its top.
void TrimlineTools::alignVerticallyInGoldenSection() {
  trap("TrimlineTools, align", [&] {
    forEachFollower([&](const Shape& m, const Shape& s) {
      const double section = 2 / (std::sqrt(5.0) + 3);
      setTop(s, getTop(m) + getHeight(m) * section - getHeight(s) / 2);
    });
  });
}

// The size is set first and the position second, since the setters of sizes may shift the frame. A new size
// of zero or less leaves the follower untouched.
void TrimlineTools::stretch(Mode mode) {
  trap("TrimlineTools, stretch", [&] {
    RotatedMetrics mr;
    bool measured = false;
    forEachFollower([&](const Shape& m, const Shape& s) {
      if (!measured) mr = getRotatedMetrics(m);
      measured = true;
      const RotatedMetrics sr = getRotatedMetrics(s);
      switch (mode) {
        case Mode::left: {
          const double delta = sr.Left - mr.Left;
          const double width = sr.Width + delta;
          if (width > 0) {
            setWidth(s, width);
            setLeft(s, sr.Left - delta);
          }
          return;
        }
        case Mode::right: {
          const double width = sr.Width + (mr.Width + mr.Left - sr.Left - sr.Width);
          if (width > 0) {
            setWidth(s, width);
            setLeft(s, sr.Left);
          }
          return;
        }
        case Mode::top: {
          const double delta = sr.Top - mr.Top;
          const double height = sr.Height + delta;
          if (height > 0) {
            setHeight(s, height);
            setTop(s, sr.Top - delta);
          }
          return;
        }
        case Mode::bottom: {
          const double height = sr.Height + (mr.Height + mr.Top - sr.Top - sr.Height);
          if (height > 0) {
            setHeight(s, height);
            setTop(s, sr.Top);
          }
          return;
        }
        default:
          return;
      }
    });
  });
}

void TrimlineTools::moveToMaster(Mode mode) {
  trap("TrimlineTools, moveToMaster", [&] {
    forEachFollower([&](const Shape& m, const Shape& s) {
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

void TrimlineTools::stretchToMaster(Mode mode) {
  trap("TrimlineTools, stretchToMaster", [&] {
    RotatedMetrics mr;
    bool measured = false;
    forEachFollower([&](const Shape& m, const Shape& s) {
      if (!measured) mr = getRotatedMetrics(m);
      measured = true;
      const RotatedMetrics sr = getRotatedMetrics(s);
      switch (mode) {
        case Mode::left: {
          const double delta = sr.Left - mr.Left - mr.Width;
          const double width = sr.Width + delta;
          if (width > 0) {
            setWidth(s, width);
            setLeft(s, sr.Left - delta);
          }
          return;
        }
        case Mode::right: {
          const double delta = getLeft(m) - getLeft(s) - getWidth(s);
          const double width = getWidth(s) + delta;
          if (width > 0) {
            setWidth(s, width);
            setLeft(s, sr.Left);
          }
          return;
        }
        case Mode::top: {
          const double delta = sr.Top - mr.Top - mr.Height;
          const double height = sr.Height + delta;
          if (height > 0) {
            setHeight(s, height);
            setTop(s, sr.Top - delta);
          }
          return;
        }
        case Mode::bottom: {
          const double delta = getTop(m) - getTop(s) - getHeight(s);
          const double height = getHeight(s) + delta;
          if (height > 0) {
            setHeight(s, height);
            setTop(s, sr.Top);
          }
          return;
        }
        default:
          return;
      }
    });
  });
}

#define VELLUMARK_COMMAND(name, procedure, mode)                   \
  void TrimlineTools::name() {                                     \
    trap("TrimlineTools, " #name, [&] { procedure(Mode::mode); }); \
  }
VELLUMARK_COMMAND(alignLefts, align, left)
VELLUMARK_COMMAND(alignCenters, align, center)
VELLUMARK_COMMAND(alignRights, align, right)
VELLUMARK_COMMAND(alignTops, align, top)
VELLUMARK_COMMAND(alignMiddles, align, middle)
VELLUMARK_COMMAND(alignBottoms, align, bottom)
VELLUMARK_COMMAND(alignWidths, alignSizes, width)
VELLUMARK_COMMAND(alignHeights, alignSizes, height)
VELLUMARK_COMMAND(alignWidthsAndHeights, alignSizes, widthAndHeight)
VELLUMARK_COMMAND(stretchLeft, stretch, left)
VELLUMARK_COMMAND(stretchRight, stretch, right)
VELLUMARK_COMMAND(stretchTop, stretch, top)
VELLUMARK_COMMAND(stretchBottom, stretch, bottom)
VELLUMARK_COMMAND(moveLeftToMasterRight, moveToMaster, left)
VELLUMARK_COMMAND(moveRightToMasterLeft, moveToMaster, right)
VELLUMARK_COMMAND(moveTopToMasterBottom, moveToMaster, top)
VELLUMARK_COMMAND(moveBottomToMasterTop, moveToMaster, bottom)
VELLUMARK_COMMAND(stretchLeftToMasterRight, stretchToMaster, left)
VELLUMARK_COMMAND(stretchRightToMasterLeft, stretchToMaster, right)
VELLUMARK_COMMAND(stretchTopToMasterBottom, stretchToMaster, top)
VELLUMARK_COMMAND(stretchBottomToMasterTop, stretchToMaster, bottom)
#undef VELLUMARK_COMMAND

}  // namespace vellumark::tools
