// Fitting a freeform header box to the upper part of a pentagon, slanted edge included.

#include <cmath>

#include "base/conversions.h"
#include "core/failure.h"
#include "core/message.h"
#include "tools/host_age.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using base::toSingle;
using core::trap;
using host::Shape;

/// The corners of a header box as the host counts them: later hosts count the closing point too.
int expectedNodes() {
  switch (hostAge()) {
    case HostAge::old:
      return 4;
    case HostAge::new_:
      return 5;
    default:
      return 0;
  }
}

bool isPentagon(const Shape& shape) {
  return shape.Type() == host::msoAutoShape && shape.AutoShapeType() == host::msoShapePentagon;
}

bool isHeader(const Shape& shape) {
  if (shape.Type() != host::msoFreeform || shape.AutoShapeType() != host::msoShapeNotPrimitive) return false;
  int nodes = -1;
  base::resumeNext([&] { nodes = shape.Nodes().Count(); });
  return nodes == expectedNodes() && nodes > 0;
}

double tipLength(const Shape& pentagon) {
  const double adjustment = pentagon.Adjustments().Item(1);
  const double width = pentagon.Width(), height = pentagon.Height();
  switch (hostAge()) {
    case HostAge::old:
      return (1 - adjustment) * width;
    case HostAge::new_:
      return adjustment * (height > width ? width : height);
    default:
      return 0;
  }
}

void straighten(const Shape& header) {
  header.Rotation(0);
  if (header.HorizontalFlip() != 0) header.Flip(host::msoFlipHorizontal);
  if (header.VerticalFlip() != 0) header.Flip(host::msoFlipVertical);
}

/// Where the header's corners go. The pentagon is asked anew for each.
class Corners {
 public:
  Corners(const Shape& header, const Shape& pentagon, bool squareLeft, double tip, double setback,
          double bottom)
      : nodes_(header.Nodes()),
        pentagon_(pentagon),
        squareLeft_(squareLeft),
        tip_(tip),
        setback_(setback),
        bottom_(bottom) {}

  void place(bool closingNode) const {
    topStart(1);
    set(2, squareLeft_ ? right() - tip_ : right(), pentagon_.Top());
    set(3, squareLeft_ ? right() - setback_ : right(), bottom_);
    set(4, squareLeft_ ? left() : left() + setback_, bottom_);
    if (closingNode) topStart(5);
  }

 private:
  void topStart(int node) const { set(node, squareLeft_ ? left() : left() + tip_, pentagon_.Top()); }
  double left() const { return pentagon_.Left(); }
  double right() const { return static_cast<double>(pentagon_.Left()) + pentagon_.Width(); }
  void set(int node, double x, double y) const { nodes_.SetPosition(node, toSingle(x), toSingle(y)); }

  host::ShapeNodes nodes_;
  const Shape& pentagon_;
  bool squareLeft_;
  double tip_, setback_, bottom_;
};

}  // namespace

void TrimlineTools::adjustPentagonHeader() {
  trap("TrimlineTools, adjustPentagonHeader", [&] {
    const SelectedShapes shapes;
    const Shape first = shapes.item(1), second = shapes.item(2);
    Shape pentagon, header;
    if (isPentagon(first) && isHeader(second)) {
      pentagon = first;
      header = second;
    } else if (isPentagon(second) && isHeader(first)) {
      pentagon = second;
      header = first;
    }
    if (!header) {
      core::message(
          "Nothing appropriate is currently selected.\r\nPlease select the pentagon (block arrow) and the "
          "corresponding header box.",
          ui::Icon::information);
      return;
    }
    const double bottom = static_cast<double>(header.Top()) + header.Height();
    const double tip = tipLength(pentagon);
    const double setback = (1 - base::divide(2 * (bottom - pentagon.Top()), pentagon.Height())) * tip;
    const int rotation = base::toInt32(static_cast<double>(pentagon.Rotation()));
    if (rotation % 180 != 0) {
      core::message("The pentagon needs to be in an upright position.", ui::Icon::exclamation);
      return;
    }
    const bool flipped = pentagon.HorizontalFlip() != 0;
    const bool squareLeft = rotation % 360 == 0 ? !flipped : flipped;
    straighten(header);
    Corners(header, pentagon, squareLeft, tip, setback, bottom).place(hostAge() == HostAge::new_);
  });
}

}  // namespace vellumark::tools
