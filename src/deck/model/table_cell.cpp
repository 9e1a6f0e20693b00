#include "deck/model/table_cell.h"

#include <string_view>

#include "deck/model/shape_frame.h"
#include "deck/model/shape_node.h"
#include "deck/model/units.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

constexpr std::int64_t longest = 51'206'400;  // EMU
constexpr std::int64_t mostCells = 10'000;

xml_node grid(xml_node table) { return table.child("a:graphic").child("a:graphicData").child("a:tbl"); }
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
    total += static_cast<double>(wholeNumber(first.attribute(attribute), 0, longest));
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

std::size_t tableRows(xml_node table) { return countOf(grid(table), "a:tr"); }
std::size_t tableColumns(xml_node table) { return countOf(grid(table).child("a:tblGrid"), "a:gridCol"); }

xml_node tableCell(xml_node table, std::size_t row, std::size_t column) {
  xml_node cell = nth(nth(grid(table), "a:tr", row), "a:tc", column);
  while (column > 0 && cell.attribute("hMerge").as_bool()) {
    cell = nth(nth(grid(table), "a:tr", row), "a:tc", --column);
  }
  while (row > 0 && cell.attribute("vMerge").as_bool()) {
    cell = nth(nth(grid(table), "a:tr", --row), "a:tc", column);
  }
  return cell;
}

TextArea cellArea(const ShapeKey& cell) {
  const xml_node table = tableOf(cell.node);
  const ShapeFrame frame = slideFrame({cell.sheet, table});
  const xml_node firstRow = grid(table).child("a:tr");
  const xml_node firstColumn = grid(table).child("a:tblGrid").child("a:gridCol");
  const std::size_t row = placeOf(cell.node.parent());
  const std::size_t column = placeOf(cell.node);
  return {frame.x / emuPerPoint + sum(firstColumn, "w", column),
          frame.y / emuPerPoint + sum(firstRow, "h", row),
          sum(nth(grid(table).child("a:tblGrid"), "a:gridCol", column), "w", span(cell.node, "gridSpan")),
          sum(cell.node.parent(), "h", span(cell.node, "rowSpan"))};
}

}  // namespace vellumark::deck
