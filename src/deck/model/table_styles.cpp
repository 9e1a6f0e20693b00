#include "deck/model/table_styles.h"

#include <set>
#include <string>
#include <string_view>

#include "deck/model/table_cell.h"
#include "deck/package/xml_copy.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::string_view noStyles =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    "\n"
    R"(<a:tblStyleLst xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main")"
    R"( def="{5C22544A-7EE6-4342-B048-85BDC9FD1C3A}"/>)";

PartRef stylesPart(Document& document) {
  const PartRef& presentation = document.presentationPart();
  const Relationship* relationship = presentation->firstRelationship("tableStyles");
  return relationship ? presentation->target(*relationship) : nullptr;
}

PartRef requireStylesPart(Document& document) {
  if (PartRef part = stylesPart(document)) return part;
  Package& package = document.package();
  const bool free = package.part("ppt/tableStyles.xml") == nullptr;
  PartRef part = package.addXml(
      free ? "ppt/tableStyles.xml" : package.freeName("ppt/tableStyles%d.xml"),
      "application/vnd.openxmlformats-officedocument.presentationml.tableStyles+xml", noStyles);
  document.presentationPart()->relate(*part, "tableStyles");
  return part;
}

void collectStyles(xml_node node, std::set<std::string>& ids) {
  for (xml_node child : node.children()) {
    if (std::string_view(child.name()) == "a:tableStyleId") ids.emplace(child.text().get());
    collectStyles(child, ids);
  }
}

xml_node styleOf(xml_node list, const std::string& id) {
  return list.find_child_by_attribute("a:tblStyle", "styleId", id.c_str());
}

/// The parts of a style that hold for a cell, the one that holds before the others first.
std::vector<const char*> partsFor(const ShapeKey& cell) {
  const xml_node table = tableOf(cell.node);
  const xml_node properties = tableElement(table).child("a:tblPr");
  const auto asked = [&](const char* flag) { return properties.attribute(flag).as_bool(); };
  const CellPlace place = cellPlace(cell.node);
  const bool top = asked("firstRow") && place.row == 0;
  const bool bottom = asked("lastRow") && place.row + cellRows(cell.node) >= tableRows(table);
  const bool left = asked("firstCol") && place.column == 0;
  const bool right = asked("lastCol") && place.column + cellColumns(cell.node) >= tableColumns(table);
  std::vector<const char*> parts;
  const auto add = [&](bool holds, const char* part) {
    if (holds) parts.push_back(part);
  };
  add(top && left, "a:nwCell");
  add(top && right, "a:neCell");
  add(top, "a:firstRow");
  add(bottom && left, "a:swCell");
  add(bottom && right, "a:seCell");
  add(bottom, "a:lastRow");
  add(left, "a:firstCol");
  add(right, "a:lastCol");
  // Bands are counted from the first line that is no heading.
  const auto band = [](std::size_t line, bool heading) { return (line - (heading ? 1 : 0)) % 2; };
  if (asked("bandCol") && !left && !right) {
    parts.push_back(band(place.column, asked("firstCol")) == 0 ? "a:band1V" : "a:band2V");
  }
  if (asked("bandRow") && !top && !bottom) {
    parts.push_back(band(place.row, asked("firstRow")) == 0 ? "a:band1H" : "a:band2H");
  }
  parts.push_back("a:wholeTbl");
  return parts;
}

/// What the style of its table has under that name for a cell, part by part.
std::vector<xml_node> stylesFor(const ShapeKey& cell, const char* name) {
  const xml_node id = tableElement(tableOf(cell.node)).child("a:tblPr").child("a:tableStyleId");
  if (!id) return {};
  const PartRef list = stylesPart(*cell.sheet.document);
  if (!list) return {};
  const xml_node style = styleOf(list->root(), id.text().get());
  if (!style) return {};
  std::vector<xml_node> found;
  for (const char* part : partsFor(cell)) {
    if (const xml_node node = style.child(part).child(name)) found.push_back(node);
  }
  return found;
}

}  // namespace

std::vector<xml_node> tableTextStyles(const ShapeKey& cell) { return stylesFor(cell, "a:tcTxStyle"); }
std::vector<xml_node> tableCellStyles(const ShapeKey& cell) { return stylesFor(cell, "a:tcStyle"); }

void bringTableStyles(xml_node tables, Document& from, Document& to) {
  if (&from == &to) return;
  std::set<std::string> ids;
  collectStyles(tables, ids);
  const PartRef source = ids.empty() ? nullptr : stylesPart(from);
  if (!source) return;
  for (const std::string& id : ids) {
    const xml_node style = styleOf(source->root(), id);
    if (!style) continue;
    const PartRef target = requireStylesPart(to);
    if (styleOf(target->root(), id)) continue;
    copyElement(style, target->root(), {}, to.package().isStrict());
    to.touch(*target);
  }
}

}  // namespace vellumark::deck
