#include "deck/model/shape_kind.h"

#include <algorithm>
#include <string_view>

#include "deck/model/placeholder.h"
#include "deck/model/shape_geometry.h"
#include "deck/model/shape_node.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::int32_t typeMixed = -2;
constexpr std::int32_t typeInk = 22;

bool isLineCallout(std::string_view preset) {
  return preset.starts_with("borderCallout") || preset.starts_with("callout") ||
         preset.starts_with("accentCallout") || preset.starts_with("accentBorderCallout");
}

bool isLine(std::string_view preset) {
  return preset == "line" || preset == "lineInv" || preset.find("Connector") != std::string_view::npos;
}

std::int32_t typeOfShape(const ShapeKey& shape) {
  if (kindProperties(shape.node).attribute("txBox").as_bool()) return host::msoTextBox;
  const ShapeGeometry geometry = shapeGeometry(shape);
  if (geometry.freeform) return host::msoFreeform;
  // The connectors of flow charts are auto shapes.
  if (isLine(geometry.preset) && !geometry.preset.starts_with("flowChart")) return host::msoLine;
  return isLineCallout(geometry.preset) ? host::msoCallout : host::msoAutoShape;
}

std::int32_t typeOfPicture(xml_node shape) {
  static constexpr std::string_view mediaElements[] = {"audioCd", "audioFile", "quickTimeFile", "videoFile",
                                                       "wavAudioFile"};
  for (xml_node child : applicationProperties(shape).children()) {
    if (std::ranges::find(mediaElements, localName(child)) != std::end(mediaElements)) return host::msoMedia;
  }
  const xml_node blip = shape.child("p:blipFill").child("a:blip");
  const bool linked = *blip.attribute("r:link").value() && !*blip.attribute("r:embed").value();
  return linked ? host::msoLinkedPicture : host::msoPicture;
}

/// An embedded or linked object; both branches of an alternative tell the same.
std::int32_t typeOfObject(xml_node shape) {
  const xml_node object = shape.find_node([](xml_node node) { return localName(node) == "oleObj"; });
  return object.child("p:link") ? host::msoLinkedOLEObject : host::msoEmbeddedOLEObject;
}

std::int32_t typeOfGraphic(xml_node shape) {
  const std::string_view uri = graphicUri(shape);
  if (uri.ends_with("/table")) return host::msoTable;
  if (uri.ends_with("/chart") || uri.ends_with("/chartex")) return host::msoChart;
  if (uri.ends_with("/diagram")) return host::msoIgxGraphic;
  if (uri.ends_with("/ole")) return typeOfObject(shape);
  return typeMixed;
}

}  // namespace

std::int32_t shapeType(const ShapeKey& shape) {
  if (placeholderElement(shape.node)) return host::msoPlaceholder;
  switch (shapeElement(shape.node)) {
    case ShapeElement::shape:
      return typeOfShape(shape);
    case ShapeElement::picture:
      return typeOfPicture(shape.node);
    case ShapeElement::graphicFrame:
      return typeOfGraphic(shape.node);
    case ShapeElement::connector:
      return host::msoLine;
    case ShapeElement::group:
      return host::msoGroup;
    case ShapeElement::contentPart:
      return typeInk;
    case ShapeElement::none:
      break;
  }
  return typeMixed;
}

bool hasTextFrame(const ShapeKey& shape) { return shapeElement(shape.node) == ShapeElement::shape; }
bool hasTable(const ShapeKey& shape) { return graphicUri(shape.node).ends_with("/table"); }
bool hasChart(const ShapeKey& shape) {
  const std::string_view uri = graphicUri(shape.node);
  return uri.ends_with("/chart") || uri.ends_with("/chartex");
}

}  // namespace vellumark::deck
