#pragma once
// The cells of a table (a:tc), which are shapes to the host.

#include <cstddef>
#include <cstdint>
#include <pugixml.hpp>

#include "deck/model/document.h"
#include "deck/model/text_area.h"

namespace vellumark::deck {

bool isTableCell(pugi::xml_node node);
/// The p:graphicFrame that a cell stands in; nothing for what is no cell.
pugi::xml_node tableOf(pugi::xml_node cell);

/// The a:tbl of a table.
pugi::xml_node tableElement(pugi::xml_node table);

/// EMU that a column or a row may measure.
inline constexpr std::int64_t longestTableLine = 51'206'400;

std::size_t tableRows(pugi::xml_node table);
std::size_t tableColumns(pugi::xml_node table);
/// The cell at a place counted from 0; where cells are merged, the one that stands for them all. Nothing
/// where a broken table lacks it.
pugi::xml_node tableCell(pugi::xml_node table, std::size_t row, std::size_t column);
/// The row and the column in which a cell stands, from 0.
struct CellPlace {
  std::size_t row = 0;
  std::size_t column = 0;
};
CellPlace cellPlace(pugi::xml_node cell);
/// How many rows and columns a cell reaches over.
std::size_t cellRows(pugi::xml_node cell);
std::size_t cellColumns(pugi::xml_node cell);
/// Whether another cell stands for this one.
bool isMerged(pugi::xml_node cell);
/// The part of the slide that a cell covers, merged ones with it, in points.
TextArea cellArea(const ShapeKey& cell);

}  // namespace vellumark::deck
