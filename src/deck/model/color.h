#pragma once
// Colours as the file tells them, and as numbers.

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "deck/model/document.h"

namespace vellumark::deck {

/// The colour element (a:srgbClr, a:schemeClr, ...) right under a node; nothing where there is none.
pugi::xml_node colorElement(pugi::xml_node holder);

/// The colour that an element means on a sheet, red in the low byte: themes looked up, tints and shades
/// applied. `placeholder` is what "phClr" stands for. Black where there is none.
std::int32_t colorNumber(const Sheet& sheet, pugi::xml_node element, pugi::xml_node placeholder = {});

/// A colour as the file writes it, "RRGGBB", and back.
std::string colorHex(std::int32_t rgb);
std::int32_t colorFromHex(std::string_view hex);

/// Gives a holder (a:solidFill and its like) a colour in the place of the one that it has.
void setColor(pugi::xml_node holder, std::int32_t rgb);
/// The same with a place in the theme: "accent1".
void setThemeColor(pugi::xml_node holder, std::string_view name);

/// The theme's name for a PpColorSchemeIndex (1 background, 2 text, ...); empty for an unknown number.
std::string_view schemeName(std::int32_t index);
/// The other way round; 0 for a name that has no number.
std::int32_t schemeIndex(std::string_view name);

}  // namespace vellumark::deck
