#include "deck/model/table_cell.h"

#include <string_view>

#include "deck/model/shape_frame.h"
#include "deck/model/shape_node.h"
#include "deck/model/units.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::int64_t mostCells = 10'000;

std::size_t countOf(xml_node parent, const char* name) {
  const auto found = parent.children(name);
  return static_cast<std::size_t>(std::distance(found.begin(), found.end()));
}
std::size_t placeOf(xml_node node) {
  std::size_t place = 0;
  while ((node = node.previous_sibling(node.name()))) ++place;
  return place;
}
xml_node nth(xml_node parent, const char* name, std::size_t place) {
  xml_node node = parent.child(name);
  while (node && place-- > 0) node = node.next_sibling(name);
  return node;
}
std::size_t span(xml_node cell, const char* name) {
  return static_cast<std::size_t>(wholeNumber(cell.attribute(name), 1, mostCells, 1));
}
/// The sum of a length over `count` nodes of the same name from `first` on.
double sum(xml_node first, const char* attribute, std::size_t count) {
  double total = 0;
  for (; first && count > 0; first = first.next_sibling(first.name()), --count) {
    total += static_cast<double>(wholeNumber(first.attribute(attribute), 0, longestTableLine));
  }
  return total / emuPerPoint;
}

}  // namespace

bool isTableCell(xml_node node) { return std::string_view(node.name()) == "a:tc"; }

xml_node tableOf(xml_node cell) {
  if (!isTableCell(cell)) return {};
  xml_node node = cell.parent();
  while (node && std::string_view(node.name()) != "p:graphicFrame") node = node.parent();
  return node;
}

xml_node tableElement(xml_node table) {
  return table.child("a:graphic").child("a:graphicData").child("a:tbl");
}

std::size_t tableRows(xml_node table) { return countOf(tableElement(table), "a:tr"); }
std::size_t tableColumns(xml_node table) {
  return countOf(tableElement(table).child("a:tblGrid"), "a:gridCol");
}

xml_node tableCell(xml_node table, std::size_t row, std::size_t column) {
  xml_node cell = nth(nth(tableElement(table), "a:tr", row), "a:tc", column);
  while (column > 0 && cell.attribute("hMerge").as_bool()) {
    cell = nth(nth(tableElement(table), "a:tr", row), "a:tc", --column);
  }
  while (row > 0 && cell.attribute("vMerge").as_bool()) {
    cell = nth(nth(tableElement(table), "a:tr", --row), "a:tc", column);
  }
  return cell;
}

CellPlace cellPlace(xml_node cell) { return {placeOf(cell.parent()), placeOf(cell)}; }
std::size_t cellRows(xml_node cell) { return span(cell, "rowSpan"); }
std::size_t cellColumns(xml_node cell) { return span(cell, "gridSpan"); }

bool isMerged(xml_node cell) {
  return cell.attribute("hMerge").as_bool() || cell.attribute("vMerge").as_bool();
}

TextArea cellArea(const ShapeKey& cell) {
  const xml_node table = tableOf(cell.node);
  const ShapeFrame frame = slideFrame({cell.sheet, table});
  const xml_node firstRow = tableElement(table).child("a:tr");
  const xml_node firstColumn = tableElement(table).child("a:tblGrid").child("a:gridCol");
  const auto [row, column] = cellPlace(cell.node);
  return {frame.x / emuPerPoint + sum(firstColumn, "w", column),
          frame.y / emuPerPoint + sum(firstRow, "h", row),
          sum(nth(tableElement(table).child("a:tblGrid"), "a:gridCol", column), "w", cellColumns(cell.node)),
          sum(cell.node.parent(), "h", cellRows(cell.node))};
}

}  // namespace vellumark::deck
