#include "deck/model/auto_size.h"

#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

#include "deck/model/connections.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_node.h"
#include "deck/model/table_cell.h"
#include "deck/model/table_size.h"
#include "deck/model/text_area.h"
#include "deck/model/text_box.h"
#include "deck/model/text_layout.h"
#include "deck/model/text_style.h"
#include "deck/model/units.h"

namespace vellumark::deck {
namespace {

/// Where a change of size leaves the shape in place: 0 its left or upper end, 0.5 its middle, 1 the other
/// end.
double anchorShare(const ShapeKey& shape) {
  const std::string_view anchor = boxProperty(shape, BoxProperty::anchor).value();
  return anchor == "ctr" ? 0.5 : anchor == "b" ? 1 : 0;
}
double alignmentShare(const ShapeKey& shape) {
  const pugi::xml_node first = textBodyOf(shape.node).child("a:p");
  const LevelStyles styles(shape, paragraphLevel(first));
  const std::string_view alignment = styles.paragraph(first.child("a:pPr"), "algn").value();
  return alignment == "ctr" ? 0.5 : alignment == "r" ? 1 : 0;
}

/// Gives a frame another size; the anchor stays where it is seen, also on a turned shape.
void resize(ShapeFrame& frame, double width, double height, double shareX, double shareY) {
  const Point middle = centre(frame);
  const Point way = turned({(width - frame.width) * (0.5 - shareX), (height - frame.height) * (0.5 - shareY)},
                           frame.rotation);
  frame.width = width;
  frame.height = height;
  frame.x = std::round(middle.x + way.x - width / 2);
  frame.y = std::round(middle.y + way.y - height / 2);
}

bool isFitted(const ShapeKey& shape) {
  return shapeElement(shape.node) == ShapeElement::shape && textFit(shape) == TextFit::shape;
}

/// One step towards the size that the text needs; whether anything changed.
bool fitOnce(const ShapeKey& shape) {
  const TextLayout layout(shape);
  ShapeFrame frame = slideFrame(shape);
  const TextArea area = textArea(shape);
  const bool upright = isUpright(shape);
  const auto margins = [&](BoxProperty a, BoxProperty b) {
    return static_cast<double>(boxMargin(shape, a) + boxMargin(shape, b));
  };
  // What the form takes from the frame on both sides.
  const double formWidth = frame.width - area.width * emuPerPoint;
  const double formHeight = frame.height - area.height * emuPerPoint;
  double lines = layout.height() * emuPerPoint + fitSlack;
  double length = layout.width() * emuPerPoint;
  if (upright) std::swap(lines, length);
  double width = std::round(length + formWidth + margins(BoxProperty::marginLeft, BoxProperty::marginRight));
  double height = std::round(lines + formHeight + margins(BoxProperty::marginTop, BoxProperty::marginBottom));
  if (wrapsText(shape)) (upright ? height : width) = upright ? frame.height : frame.width;
  if (width == frame.width && height == frame.height) return false;
  double shareX = alignmentShare(shape);
  double shareY = anchorShare(shape);
  if (upright) std::swap(shareX, shareY);
  resize(frame, width, height, shareX, shareY);
  moveShape(shape, frame);
  return true;
}

}  // namespace

void textChanged(const ShapeKey& shape) {
  shape.sheet.touch(Change::contents);
  if (isTableCell(shape.node)) return fitRow(shape);
  fitToText(shape);
}

void fitToText(const ShapeKey& shape) {
  if (shapeElement(shape.node) == ShapeElement::group) {
    std::vector<pugi::xml_node> leaves;
    appendLeaves(shape.node, leaves);
    for (const pugi::xml_node leaf : leaves) fitToText({shape.sheet, leaf});
  }
  if (!isFitted(shape)) return;
  // What a form takes from its frame changes with the frame.
  for (int step = 0; step < 4 && fitOnce(shape); ++step) continue;
}

void keepFitted(const ShapeKey& shape, const ShapeFrame& now, ShapeFrame& frame) {
  if (!isFitted(shape)) return;
  const bool wraps = wrapsText(shape), upright = isUpright(shape);
  if (!wraps || upright) frame.width = now.width;
  if (!wraps || !upright) frame.height = now.height;
}

}  // namespace vellumark::deck
