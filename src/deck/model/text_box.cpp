#include "deck/model/text_box.h"

#include <limits>
#include <string_view>

#include "deck/model/placeholder.h"
#include "deck/model/shape_node.h"
#include "deck/model/table_cell.h"
#include "deck/model/text_style.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

struct PropertyNames {
  const char* inShape;
  const char* inCell;  ///< nothing where a cell has no such property
};
constexpr PropertyNames propertyNames[] = {
    {"lIns", "marL"},     {"tIns", "marT"},  {"rIns", "marR"}, {"bIns", "marB"},
    {"anchor", "anchor"}, {"wrap", nullptr}, {"vert", "vert"},
};
const PropertyNames& namesOf(BoxProperty property) {
  return propertyNames[static_cast<std::size_t>(property)];
}

xml_node bodyProperties(xml_node shape) { return shape.child("p:txBody").child("a:bodyPr"); }

}  // namespace

pugi::xml_attribute boxProperty(const ShapeKey& shape, BoxProperty property) {
  const PropertyNames& names = namesOf(property);
  if (isTableCell(shape.node)) {
    return names.inCell ? shape.node.child("a:tcPr").attribute(names.inCell) : pugi::xml_attribute();
  }
  for (ShapeKey holder = shape; holder.node; holder = inheritedPlaceholder(holder)) {
    if (const pugi::xml_attribute found = bodyProperties(holder.node).attribute(names.inShape)) return found;
  }
  return {};
}

void setBoxProperty(xml_node shape, BoxProperty property, const char* value) {
  const PropertyNames& names = namesOf(property);
  if (!isTableCell(shape)) {
    setAttribute(requireTextBody(shape).child("a:bodyPr"), names.inShape, value);
  } else if (names.inCell) {
    setAttribute(childInOrder(shape, "a:tcPr", {"a:extLst"}), names.inCell, value);
  }
}

std::int64_t boxMargin(const ShapeKey& shape, BoxProperty side) {
  constexpr std::int64_t limit = std::numeric_limits<std::int32_t>::max();
  const bool ends = side == BoxProperty::marginTop || side == BoxProperty::marginBottom;
  return wholeNumber(boxProperty(shape, side), -limit, limit, ends ? 45'720 : 91'440);
}

bool wrapsText(const ShapeKey& shape) {
  return std::string_view(boxProperty(shape, BoxProperty::wrap).value()) != "none";
}

bool isUpright(const ShapeKey& shape) {
  const std::string_view direction = boxProperty(shape, BoxProperty::direction).as_string("horz");
  return direction != "horz";
}

TextFit textFit(const ShapeKey& shape) {
  for (ShapeKey holder = shape; holder.node; holder = inheritedPlaceholder(holder)) {
    const xml_node properties = bodyProperties(holder.node);
    if (properties.child("a:spAutoFit")) return TextFit::shape;
    if (properties.child("a:normAutofit")) return TextFit::shrink;
    if (properties.child("a:noAutofit")) break;
  }
  return TextFit::none;
}

xml_node shrinking(const ShapeKey& shape) {
  for (ShapeKey holder = shape; holder.node; holder = inheritedPlaceholder(holder)) {
    const xml_node properties = bodyProperties(holder.node);
    if (const xml_node found = properties.child("a:normAutofit")) return found;
    if (properties.child("a:spAutoFit") || properties.child("a:noAutofit")) break;
  }
  return {};
}

xml_node requireTextBody(xml_node shape) {
  xml_node body = isTableCell(shape) ? childInOrder(shape, "a:txBody", {"a:tcPr", "a:extLst"})
                                     : childInOrder(shape, "p:txBody", {"p:extLst"});
  childInOrder(body, "a:bodyPr", {"a:lstStyle", "a:p"});
  childInOrder(body, "a:lstStyle", {"a:p"});
  if (!body.child("a:p")) body.append_child("a:p");
  return body;
}

}  // namespace vellumark::deck
