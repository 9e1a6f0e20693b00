#pragma once
// The cells of a table (a:tc), which are shapes to the host.

#include <cstddef>
#include <pugixml.hpp>

#include "deck/model/document.h"
#include "deck/model/text_area.h"

namespace vellumark::deck {

bool isTableCell(pugi::xml_node node);
/// The p:graphicFrame that a cell stands in; nothing for what is no cell.
pugi::xml_node tableOf(pugi::xml_node cell);

std::size_t tableRows(pugi::xml_node table);
std::size_t tableColumns(pugi::xml_node table);
/// The cell at a place counted from 0; where cells are merged, the one that stands for them all. Nothing
/// where a broken table lacks it.
pugi::xml_node tableCell(pugi::xml_node table, std::size_t row, std::size_t column);
/// The part of the slide that a cell covers, merged ones with it, in points.
TextArea cellArea(const ShapeKey& cell);

}  // namespace vellumark::deck
