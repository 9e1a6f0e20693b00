#include "deck/model/text_style.h"

#include <algorithm>

#include "deck/model/color.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_node.h"
#include "deck/model/table_cell.h"
#include "deck/model/table_styles.h"
#include "deck/model/theme.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr int mostLevels = 9;
constexpr const char* levelNames[mostLevels] = {"a:lvl1pPr", "a:lvl2pPr", "a:lvl3pPr",
                                                "a:lvl4pPr", "a:lvl5pPr", "a:lvl6pPr",
                                                "a:lvl7pPr", "a:lvl8pPr", "a:lvl9pPr"};

Sheet topSheet(Sheet sheet) {
  for (int steps = 0; steps < 3; ++steps) {
    Sheet parent = sheet.parent();
    if (!parent) break;
    sheet = std::move(parent);
  }
  return sheet;
}

/// The list of styles that a master has for a kind of placeholder; nothing for shapes that are none.
xml_node masterStyles(const ShapeKey& shape) {
  const xml_node placeholder = placeholderElement(shape.node);
  if (!placeholder) return {};
  const xml_node root = topSheet(shape.sheet).part->root();
  if (const xml_node notes = root.child("p:notesStyle")) return notes;
  const xml_node styles = root.child("p:txStyles");
  switch (placeholderFamily(placeholder)) {
    case PlaceholderFamily::title:
      return styles.child("p:titleStyle");
    case PlaceholderFamily::body:
      return styles.child("p:bodyStyle");
    default:
      return styles.child("p:otherStyle");
  }
}

}  // namespace

xml_node textBodyOf(xml_node shape) {
  const xml_node body = shape.child("p:txBody");
  return body ? body : shape.child("a:txBody");
}

int paragraphLevel(xml_node paragraph) {
  return static_cast<int>(wholeNumber(paragraph.child("a:pPr").attribute("lvl"), 0, mostLevels - 1)) + 1;
}

LevelStyles::LevelStyles(const ShapeKey& shape, int level) {
  const char* name = levelNames[std::clamp(level, 1, mostLevels) - 1];
  const auto add = [&](xml_node list) {
    for (const xml_node style : {list.child(name), list.child("a:defPPr")}) {
      if (style) styles_.push_back(style);
    }
  };
  for (ShapeKey holder = shape; holder.node; holder = inheritedPlaceholder(holder)) {
    add(textBodyOf(holder.node).child("a:lstStyle"));
  }
  add(masterStyles(shape));
  add(shape.sheet.document->presentation().child("p:defaultTextStyle"));
  if (isTableCell(shape.node)) tableStyles_ = tableTextStyles(shape);
}

pugi::xml_attribute LevelStyles::paragraph(xml_node own, const char* attribute) const {
  if (const pugi::xml_attribute found = own.attribute(attribute)) return found;
  for (const xml_node style : styles_) {
    if (const pugi::xml_attribute found = style.attribute(attribute)) return found;
  }
  return {};
}

pugi::xml_attribute LevelStyles::run(xml_node own, const char* attribute) const {
  if (const pugi::xml_attribute found = own.attribute(attribute)) return found;
  for (const xml_node style : styles_) {
    if (const pugi::xml_attribute found = style.child("a:defRPr").attribute(attribute)) return found;
  }
  return {};
}

xml_node LevelStyles::runChild(xml_node own, const char* name) const {
  if (const xml_node found = own.child(name)) return found;
  for (const xml_node style : styles_) {
    if (const xml_node found = style.child("a:defRPr").child(name)) return found;
  }
  return {};
}

bool LevelStyles::runFlag(xml_node own, const char* attribute) const {
  if (!own.attribute(attribute)) {
    for (const xml_node style : tableStyles_) {
      const std::string_view state = style.attribute(attribute).as_string("def");
      if (state != "def") return state == "on";
    }
  }
  return run(own, attribute).as_bool();
}

std::string LevelStyles::typeface(xml_node own) const {
  if (!own.child("a:latin")) {
    for (const xml_node style : tableStyles_) {
      if (const xml_node font = style.child("a:font").child("a:latin")) {
        return font.attribute("typeface").value();
      }
      const std::string_view place = style.child("a:fontRef").attribute("idx").value();
      if (place == "minor" || place == "major") return place == "minor" ? "+mn-lt" : "+mj-lt";
    }
  }
  const xml_node latin = runChild(own, "a:latin");
  return latin ? latin.attribute("typeface").value() : "+mn-lt";
}

xml_node LevelStyles::color() const {
  for (const xml_node style : tableStyles_) {
    if (const xml_node found = colorElement(style)) return found;
  }
  return colorElement(runChild({}, "a:solidFill"));
}

CharacterFormat characterFormat(const ShapeKey& shape, const LevelStyles& styles, xml_node run) {
  CharacterFormat format;
  format.face.family = fontFamily(shape.sheet, styles.typeface(run));
  format.face.bold = styles.runFlag(run, "b");
  format.face.italic = styles.runFlag(run, "i");
  constexpr std::int64_t smallest = 100, largest = 400'000, usual = 1'800;
  format.size = static_cast<double>(wholeNumber(styles.run(run, "sz"), smallest, largest, usual)) / 100;
  return format;
}

/// The colour that a shape's style gives its text stands before those of master and presentation.
xml_node characterColor(const ShapeKey& shape, const LevelStyles& styles, xml_node run) {
  if (const xml_node own = colorElement(run.child("a:solidFill"))) return own;
  if (const xml_node styled = colorElement(shape.node.child("p:style").child("a:fontRef"))) return styled;
  return styles.color();
}

}  // namespace vellumark::deck
