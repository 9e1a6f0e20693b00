#pragma once
// The table styles of a presentation, which its tables name by their ids.

#include <pugixml.hpp>
#include <vector>

#include "deck/model/document.h"

namespace vellumark::deck {

/// Brings the styles of all tables that stand in a node into another presentation, where it lacks them.
/// Styles that a presentation knows without listing them need nothing.
void bringTableStyles(pugi::xml_node tables, Document& from, Document& to);

/// What the style of its table says of the text of a cell: the a:tcTxStyle of the first row, of the first
/// column and whatever else the cell belongs to, the one that holds before the others first. Nothing for
/// styles that the presentation doesn't list.
std::vector<pugi::xml_node> tableTextStyles(const ShapeKey& cell);

/// The same for fill and borders: the a:tcStyle of the style's parts.
std::vector<pugi::xml_node> tableCellStyles(const ShapeKey& cell);

}  // namespace vellumark::deck
