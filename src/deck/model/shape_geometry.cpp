#include "deck/model/shape_geometry.h"

#include <charconv>
#include <string>

#include "base/error.h"
#include "deck/model/auto_size.h"
#include "deck/model/autoshape_types.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_node.h"
#include "deck/model/xml_order.h"
#include "host/constants.h"

namespace vellumark::deck {

using pugi::xml_node;

ShapeGeometry shapeGeometry(const ShapeKey& shape) {
  const ShapeElement element = shapeElement(shape.node);
  if (element != ShapeElement::shape && element != ShapeElement::picture &&
      element != ShapeElement::connector) {
    return {};
  }
  const xml_node properties = visualProperties(shape.node);
  if (const xml_node preset = properties.child("a:prstGeom")) {
    return {preset.attribute("prst").as_string("rect"), preset.child("a:avLst")};
  }
  if (properties.child("a:custGeom")) return {.preset = {}, .guides = {}, .freeform = true};
  if (const ShapeKey model = inheritedPlaceholder(shape); model.node) {
    if (ShapeGeometry inherited = shapeGeometry(model); !inherited.preset.empty() || inherited.freeform) {
      return inherited;
    }
  }
  return {element == ShapeElement::connector ? "line" : "rect", {}};
}

std::int32_t guideValue(const ShapeGeometry& geometry, const PresetGuide& guide) {
  for (xml_node entry : geometry.guides.children("a:gd")) {
    // Some programs number a single guide, and some don't.
    const std::string_view name = entry.attribute("name").value();
    const bool same = name == guide.name || (name == "adj" && std::string_view(guide.name) == "adj1") ||
                      (name == "adj1" && std::string_view(guide.name) == "adj");
    std::string_view formula = entry.attribute("fmla").value();
    if (!same || !formula.starts_with("val ")) continue;
    formula.remove_prefix(4);
    std::int32_t value = 0;
    if (std::from_chars(formula.data(), formula.data() + formula.size(), value).ec == std::errc())
      return value;
  }
  return guide.value;
}

std::int32_t autoShapeTypeOf(const ShapeKey& shape) {
  if (shapeElement(shape.node) == ShapeElement::connector) return host::msoShapeMixed;
  const ShapeGeometry geometry = shapeGeometry(shape);
  return geometry.freeform ? host::msoShapeNotPrimitive : autoShapeType(geometry.preset);
}

void setAutoShapeType(const ShapeKey& shape, std::int32_t type) {
  const ShapeElement element = shapeElement(shape.node);
  const std::string_view preset = presetOf(type);
  if ((element != ShapeElement::shape && element != ShapeElement::picture) || preset.empty()) {
    base::raise(base::errors::outOfRange);
  }
  const ShapeGeometry before = shapeGeometry(shape);
  if (before.preset == preset) return;
  xml_node geometry = requirePreset(shape, preset);
  childInOrder(geometry, "a:avLst", {}).remove_children();
  textChanged(shape);
}

xml_node requirePreset(const ShapeKey& shape, std::string_view preset) {
  const std::string name(preset);
  xml_node properties = requireVisualProperties(shape.node);
  while (properties.remove_child("a:custGeom")) {
  }
  xml_node geometry =
      childInOrder(properties, "a:prstGeom",
                   {"a:noFill", "a:solidFill", "a:gradFill", "a:blipFill", "a:pattFill", "a:grpFill", "a:ln",
                    "a:effectLst", "a:effectDag", "a:scene3d", "a:sp3d", "a:extLst"});
  setAttribute(geometry, "prst", name.c_str());
  return geometry;
}

void writePreset(const ShapeKey& shape, std::string_view preset, const std::vector<std::int32_t>& values) {
  const std::span<const PresetGuide> guides = presetGuides(preset);
  xml_node list = childInOrder(requirePreset(shape, preset), "a:avLst", {});
  list.remove_children();
  for (std::size_t i = 0; i < guides.size(); ++i) {
    xml_node guide = list.append_child("a:gd");
    setAttribute(guide, "name", guides[i].name);
    setAttribute(guide, "fmla", ("val " + std::to_string(values[i])).c_str());
  }
}

}  // namespace vellumark::deck
