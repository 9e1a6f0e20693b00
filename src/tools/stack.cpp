// Setting the selected shapes edge to edge, in the order of selecting, from the master backwards.

#include "core/failure.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {

using core::trap;
using host::Shape;

void TrimlineTools::stackHorizontally() {
  trap("TrimlineTools, stackHorizontally", [&] {
    const SelectedShapes shapes;
    Shape previous = shapes.master();
    const bool leftward = getLeft(previous) > getLeft(shapes.item(1));
    for (int i = shapes.count() - 1; i >= 1; --i) {
      const Shape s = shapes.item(i);
      setLeft(s, leftward ? getLeft(previous) - getWidth(s) : getLeft(previous) + getWidth(previous));
      previous = s;
    }
  });
}

// The location is that of the horizontal tool.
void TrimlineTools::stackVertically() {
  trap("TrimlineTools, stackHorizontally", [&] {
    const SelectedShapes shapes;
    Shape previous = shapes.master();
    const bool upward = getTop(previous) > getTop(shapes.item(1));
    for (int i = shapes.count() - 1; i >= 1; --i) {
      const Shape s = shapes.item(i);
      setTop(s, upward ? getTop(previous) - getHeight(s) : getTop(previous) + getHeight(previous));
      previous = s;
    }
  });
}

}  // namespace vellumark::tools
