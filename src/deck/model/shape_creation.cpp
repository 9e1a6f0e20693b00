#include "deck/model/shape_creation.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "deck/model/autoshape_types.h"
#include "deck/model/new_presentation.h"
#include "deck/model/objects.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_node.h"
#include "deck/model/units.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

/// Makes sure that the prefix a stands for the drawing namespace in all of a part.
void declareDrawing(xml_node root) {
  if (!root.attribute("xmlns:a")) {
    root.append_attribute("xmlns:a").set_value("http://schemas.openxmlformats.org/drawingml/2006/main");
  }
}

xml_node schemeColor(xml_node parent, const char* color) {
  xml_node node = parent.append_child("a:schemeClr");
  node.append_attribute("val").set_value(color);
  return node;
}

xml_node styleReference(xml_node style, const char* name, const char* index) {
  xml_node node = style.append_child(name);
  node.append_attribute("idx").set_value(index);
  return node;
}

/// Fill of accent 1, a darker line of it, light text.
void appendThemeStyle(xml_node shape) {
  xml_node style = shape.append_child("p:style");
  schemeColor(styleReference(style, "a:lnRef", "2"), "accent1")
      .append_child("a:shade")
      .append_attribute("val")
      .set_value("50000");
  schemeColor(styleReference(style, "a:fillRef", "1"), "accent1");
  schemeColor(styleReference(style, "a:effectRef", "0"), "accent1");
  schemeColor(styleReference(style, "a:fontRef", "minor"), "lt1");
}

/// A text body with one empty paragraph; its a:bodyPr.
xml_node appendTextBody(xml_node shape, const char* alignment) {
  xml_node body = shape.append_child("p:txBody");
  xml_node properties = body.append_child("a:bodyPr");
  body.append_child("a:lstStyle");
  xml_node paragraph = body.append_child("a:p");
  if (alignment) paragraph.append_child("a:pPr").append_attribute("algn").set_value(alignment);
  return properties;
}

/// A p:sp with its properties at the front of the sheet, without text.
ShapeKey appendShape(const Sheet& sheet, const std::string& name, std::string_view preset, bool textBox,
                     const NewFrame& frame) {
  const std::int32_t id = freeShapeId(sheet);
  declareDrawing(sheet.part->root());
  xml_node tree = sheet.shapeTree();
  xml_node extensions = tree.child("p:extLst");
  const ShapeKey shape{sheet,
                       extensions ? tree.insert_child_before("p:sp", extensions) : tree.append_child("p:sp")};

  xml_node node = shape.node;
  xml_node nonVisual = node.append_child("p:nvSpPr");
  xml_node drawing = nonVisual.append_child("p:cNvPr");
  drawing.append_attribute("id").set_value(id);
  drawing.append_attribute("name").set_value((name + " " + std::to_string(id)).c_str());
  xml_node kind = nonVisual.append_child("p:cNvSpPr");
  if (textBox) kind.append_attribute("txBox").set_value("1");
  nonVisual.append_child("p:nvPr");

  xml_node properties = node.append_child("p:spPr");
  xml_node geometry = properties.append_child("a:prstGeom");
  geometry.append_attribute("prst").set_value(std::string(preset).c_str());
  geometry.append_child("a:avLst");
  if (textBox) properties.append_child("a:noFill");
  const auto emu = [](float points) { return std::round(static_cast<double>(points) * emuPerPoint); };
  try {
    setSlideFrame(
        shape,
        {.x = emu(frame.left), .y = emu(frame.top), .width = emu(frame.width), .height = emu(frame.height)});
  } catch (...) {
    tree.remove_child(node);
    throw;
  }
  sheet.touch();
  return shape;
}

bool sameKind(std::int32_t a, std::int32_t b) {
  constexpr std::int32_t titles[] = {1, 3, 5};
  const auto isTitle = [&](std::int32_t type) { return std::ranges::find(titles, type) != std::end(titles); };
  return a == b || (isTitle(a) && isTitle(b));
}

}  // namespace

ShapeKey addAutoShape(const Sheet& sheet, std::int32_t type, const NewFrame& frame) {
  const std::string_view preset = presetOf(type);
  if (preset.empty()) base::raise(base::errors::outOfRange);
  const ShapeKey shape = appendShape(sheet, std::string(autoShapeName(type)), preset, false, frame);
  appendThemeStyle(shape.node);
  xml_node body = appendTextBody(shape.node, "ctr");
  body.append_attribute("rtlCol").set_value("0");
  body.append_attribute("anchor").set_value("ctr");
  return shape;
}

ShapeKey addTextBox(const Sheet& sheet, std::int32_t orientation, const NewFrame& frame) {
  static constexpr const char* directions[] = {"horz",   "vert270",     "vert",
                                               "eaVert", "wordArtVert", "mongolianVert"};
  if (orientation < 1 || orientation > static_cast<std::int32_t>(std::size(directions))) {
    base::raise(base::errors::outOfRange);
  }
  const ShapeKey shape = appendShape(sheet, "TextBox", "rect", true, frame);
  xml_node body = appendTextBody(shape.node, nullptr);
  if (orientation != 1) body.append_attribute("vert").set_value(directions[orientation - 1]);
  body.append_attribute("wrap").set_value("square");
  body.append_attribute("rtlCol").set_value("0");
  body.append_child("a:spAutoFit");
  return shape;
}

ShapeKey addPlaceholder(const Sheet& sheet, std::int32_t type) {
  const Sheet layout = sheet.parent();
  std::vector<xml_node> free;
  if (layout) {
    for (const xml_node model : shapeNodes(layout.shapeTree())) {
      const xml_node element = placeholderElement(model);
      if (element && sameKind(placeholderType(element), type)) free.push_back(model);
    }
    for (const ShapeKey& shape : shapesOf(sheet)) {
      const ShapeKey used = inheritedPlaceholder(shape);
      std::erase(free, used.node);
    }
  }
  if (free.empty()) {
    base::raise(base::errors::invalidRequest,
                "Shapes.AddPlaceholder: Invalid request. The slide has lost no placeholder of that type.");
  }
  declareDrawing(sheet.part->root());
  const ShapeKey shape{sheet, appendPlaceholder(sheet.shapeTree(), free.front(), freeShapeId(sheet))};
  sheet.touch();
  return shape;
}

}  // namespace vellumark::deck
