#include "deck/model/embedded_object.h"

#include <string_view>
#include <vector>

#include "deck/model/shape_node.h"
#include "deck/package/package.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

bool isNamed(xml_node node, std::string_view name) { return name == node.name(); }

void collectObjects(xml_node node, std::vector<xml_node>& objects) {
  for (xml_node child : node.children()) {
    if (isNamed(child, "p:oleObj")) objects.push_back(child);
    collectObjects(child, objects);
  }
}

/// Puts the branch for programs that don't draw VML in the place of the alternative around it, where that
/// branch brings the picture itself.
bool preferFallback(xml_node object) {
  xml_node alternative = object.parent().parent();
  if (!isNamed(object.parent(), "mc:Choice") || !isNamed(alternative, "mc:AlternateContent")) return false;
  const xml_node better = alternative.child("mc:Fallback").child("p:oleObj");
  if (!better.child("p:pic")) return false;
  xml_node holder = alternative.parent();
  holder.insert_move_before(better, alternative);
  holder.remove_child(alternative);
  return true;
}

/// The picture of an object in the sheet's drawing; nothing where it has none. A drawing is often no sound
/// XML and is then passed over.
PartRef drawnPicture(Part& sheet, std::string_view id) {
  for (const Relationship& relationship : sheet.relationships()) {
    const PartRef drawing = relationship.is("vmlDrawing") ? sheet.target(relationship) : nullptr;
    if (!drawing) continue;
    try {
      const xml_node shape = drawing->root().find_node(
          [&](xml_node node) { return localName(node) == "shape" && id == node.attribute("id").value(); });
      const xml_node data = shape.find_node([](xml_node node) { return localName(node) == "imagedata"; });
      for (const pugi::xml_attribute attribute : data.attributes()) {
        const std::string_view name = attribute.name();
        if (!name.ends_with(":relid") && name != "r:id") continue;
        const Relationship* picture = drawing->relationship(attribute.value());
        if (PartRef part = picture ? drawing->target(*picture) : nullptr) return part;
      }
    } catch (const FormatError&) {
      continue;
    }
  }
  return nullptr;
}

/// p:pic of an object, as large as the frame that it stands in.
void appendPicture(xml_node object, const std::string& id) {
  xml_node picture = object.append_child("p:pic");
  xml_node nonVisual = picture.append_child("p:nvPicPr");
  xml_node drawing = nonVisual.append_child("p:cNvPr");
  drawing.append_attribute("id").set_value("0");
  drawing.append_attribute("name").set_value("");
  nonVisual.append_child("p:cNvPicPr");
  nonVisual.append_child("p:nvPr");
  xml_node fill = picture.append_child("p:blipFill");
  fill.append_child("a:blip").append_attribute("r:embed").set_value(id.c_str());
  fill.append_child("a:stretch").append_child("a:fillRect");
  xml_node properties = picture.append_child("p:spPr");
  xml_node frame = object.parent();
  while (frame && shapeElement(frame) == ShapeElement::none) frame = frame.parent();
  if (const xml_node place = frame.child("p:xfrm")) {
    properties.append_copy(place).set_name("a:xfrm");
  }
  xml_node geometry = properties.append_child("a:prstGeom");
  geometry.append_attribute("prst").set_value("rect");
  geometry.append_child("a:avLst");
}

}  // namespace

void inlineObjectPictures(xml_node node, Part& sheet,
                          const std::function<std::string(const PartRef& picture)>& relate) {
  std::vector<xml_node> objects;
  collectObjects(node, objects);
  for (xml_node object : objects) {
    const std::string id = object.attribute("spid").value();
    if (id.empty() || preferFallback(object)) continue;
    if (!object.child("p:pic")) {
      const PartRef picture = drawnPicture(sheet, id);
      if (!picture) continue;
      appendPicture(object, relate(picture));
    }
    object.remove_attribute("spid");
  }
}

std::vector<xml_node> objectPictures(xml_node frame) {
  const xml_node data = frame.child("a:graphic").child("a:graphicData");
  if (!std::string_view(data.attribute("uri").value()).ends_with("/ole")) return {};
  std::vector<xml_node> objects, pictures;
  collectObjects(data, objects);
  for (const xml_node object : objects) {
    if (const xml_node picture = object.child("p:pic")) pictures.push_back(picture);
  }
  return pictures;
}

}  // namespace vellumark::deck
