#pragma once
// The table styles of a presentation, which its tables name by their ids.

#include <pugixml.hpp>

#include "deck/model/document.h"

namespace vellumark::deck {

/// Brings the styles of all tables that stand in a node into another presentation, where it lacks them.
/// Styles that a presentation knows without listing them need nothing.
void bringTableStyles(pugi::xml_node tables, Document& from, Document& to);

}  // namespace vellumark::deck
