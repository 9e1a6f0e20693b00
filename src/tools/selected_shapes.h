#pragma once
// The shapes that a tool works on.

#include "core/globals.h"

namespace vellumark::tools {

/// The shapes of the active window's selection, held for a whole run, in the order of selecting. Raises where
/// none is selected.
class SelectedShapes {
 public:
  SelectedShapes()
      : range_(core::globals().powerPointApp.ActiveWindow().Selection().ShapeRange()),
        count_(range_.Count()) {}

  const host::ShapeRange& range() const { return range_; }
  int count() const { return count_; }
  /// From 1.
  host::Shape item(int index) const { return range_.Item(index); }
  /// The last one.
  host::Shape master() const { return item(count_); }

  /// Runs `step(shape)` for all.
  template <typename Step>
  void each(Step&& step) const {
    for (int i = 1; i <= count_; ++i) step(item(i));
  }
  /// The same for all but the master.
  template <typename Step>
  void eachFollower(Step&& step) const {
    for (int i = 1; i < count_; ++i) step(item(i));
  }

 private:
  host::ShapeRange range_;
  int count_;
};

}  // namespace vellumark::tools
