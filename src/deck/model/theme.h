#pragma once
// The theme that a sheet is drawn with: colours, fonts, line styles.

#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "deck/model/document.h"

namespace vellumark::deck {

/// The a:themeElements of the master above a sheet; nothing where it has no theme.
pugi::xml_node themeElements(const Sheet& sheet);

/// The colour element (a:srgbClr, a:sysClr) of a place in the scheme as sheets name it ("tx1", "accent2",
/// "dk1"), mapped by the sheet, its layout or its master; nothing for an unknown name.
pugi::xml_node schemeColorElement(const Sheet& sheet, std::string_view name);

/// The family that a typeface means: "+mn-lt" and "+mj-lt" are the theme's body and heading fonts.
std::string fontFamily(const Sheet& sheet, std::string_view typeface);

/// The a:ln of a place in the theme's line styles, from 1; nothing where there is none.
pugi::xml_node themeLine(const Sheet& sheet, std::int64_t index);
/// The fill of a place in its fills, from 1; those of backgrounds from 1001.
pugi::xml_node themeFill(const Sheet& sheet, std::int64_t index);

}  // namespace vellumark::deck
