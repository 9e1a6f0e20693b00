#pragma once
// The usual masters and layouts with their placeholders, scaled to the size of the slides.

#include <pugixml.hpp>

#include "decks/deck_model.h"

namespace vellumark::decks {

extern const std::vector<std::string> usualLayouts;  ///< the types of the usual eleven, in order

std::shared_ptr<MasterData> makeMaster(const Theme& theme, double width, double height);
/// std::invalid_argument where no layout has that type.
std::shared_ptr<LayoutData> makeLayout(const std::string& type, double width, double height);

/// The theme's part.
std::string themeXml(const Theme& theme);
/// The p:txStyles of a master with that theme, at its end.
void appendTextStyles(pugi::xml_node master, const Theme& theme);

}  // namespace vellumark::decks
