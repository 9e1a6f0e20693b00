#include "deck/model/black_white_mode.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "deck/model/references.h"
#include "deck/model/shape_node.h"
#include "deck/model/xml_order.h"
#include "deck/package/part_copier.h"
#include "deck/package/xml_copy.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::string_view modes[] = {"auto",      "gray",       "ltGray", "invGray", "grayWhite",
                                      "blackGray", "blackWhite", "black",  "white",   "hidden"};
constexpr std::int32_t automatic = 1;

std::int32_t modeOf(xml_node holder) {
  const std::string_view mode = holder.attribute("bwMode").value();
  const auto* found = std::ranges::find(modes, mode);
  return found == std::end(modes) ? automatic : static_cast<std::int32_t>(found - std::begin(modes)) + 1;
}

const char* nameOf(std::int32_t mode) {
  if (mode < 1 || mode > static_cast<std::int32_t>(std::size(modes))) base::raise(base::errors::outOfRange);
  return modes[mode - 1].data();
}

/// The element of a shape that holds its mode: a graphic frame itself, of others the visual properties.
xml_node holderOf(xml_node shape) {
  const ShapeElement element = shapeElement(shape);
  const bool itself = element == ShapeElement::graphicFrame || element == ShapeElement::contentPart;
  return itself ? shape : visualProperties(shape);
}

void set(xml_node shape, const char* mode) {
  const xml_node holder = holderOf(shape);
  setAttribute(holder ? holder : requireVisualProperties(shape), "bwMode", mode);
}

xml_node backgroundOf(const Sheet& sheet) { return sheet.part->root().child("p:cSld").child("p:bg"); }

/// The sheet whose background a sheet shows; nothing where none above it has one.
Sheet backgroundHolder(Sheet sheet) {
  for (int steps = 0; sheet && steps < 3; ++steps) {
    if (backgroundOf(sheet)) return sheet;
    sheet = sheet.parent();
  }
  return {};
}

/// Gives a sheet the background that it shows as its own, with the pictures in it.
xml_node requireBackground(const Sheet& sheet) {
  if (const xml_node own = backgroundOf(sheet)) return own;
  xml_node data = sheet.part->root().child("p:cSld");
  Package& package = sheet.document->package();
  const Sheet holder = backgroundHolder(sheet);
  if (holder) {
    const xml_node copy = copyElement(backgroundOf(holder), data, data.first_child(), package.isStrict());
    PartCopier copier(package);
    for (Reference reference : referencesIn(copy)) {
      const Relationship* relationship = holder.part->relationship(reference.attribute.value());
      if (!relationship) continue;
      reference.attribute.set_value(copier.relate(*holder.part, *relationship, *sheet.part).c_str());
    }
    return copy;
  }
  // The first background style of the theme in the background colour, as masters have it.
  xml_node made = data.prepend_child("p:bg");
  xml_node style = made.append_child("p:bgRef");
  style.append_attribute("idx").set_value("1001");
  style.append_child("a:schemeClr").append_attribute("val").set_value("bg1");
  return made;
}

}  // namespace

std::int32_t blackWhiteMode(const ShapeKey& shape) { return modeOf(holderOf(shape.node)); }

void setBlackWhiteMode(const ShapeKey& shape, std::int32_t mode) {
  const char* name = nameOf(mode);
  std::vector<xml_node> shapes = withCounterparts(shape.node);
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    set(shapes[i], name);
    if (shapeElement(shapes[i]) != ShapeElement::group) continue;
    for (const xml_node member : shapeNodes(shapes[i])) shapes.push_back(member);
  }
  shape.sheet.touch(Change::contents);
}

std::int32_t backgroundMode(const Sheet& sheet) {
  const Sheet holder = backgroundHolder(sheet);
  return holder ? modeOf(backgroundOf(holder)) : automatic;
}

void setBackgroundMode(const Sheet& sheet, std::int32_t mode) {
  const char* name = nameOf(mode);
  setAttribute(requireBackground(sheet), "bwMode", name);
  sheet.touch();
}

}  // namespace vellumark::deck
