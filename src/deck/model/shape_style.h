#pragma once
// Where a shape says how it is filled and lined: in elements of its own, or in references of its style to the
// theme.

#include <cstdint>
#include <initializer_list>
#include <pugixml.hpp>

namespace vellumark::deck {

/// The kinds of fills, of which properties and lines hold one at most.
inline constexpr std::initializer_list<const char*> fillNames = {"a:noFill",   "a:solidFill", "a:gradFill",
                                                                 "a:blipFill", "a:pattFill",  "a:grpFill"};
/// The fill right under a node; nothing where it has none.
pugi::xml_node fillElement(pugi::xml_node holder);

/// A reference of a shape's own style into the theme ("a:fillRef"); nothing where it refers to no place.
pugi::xml_node styleReference(pugi::xml_node shape, const char* name);
/// The place that it refers to, from 1.
std::int64_t themeIndex(pugi::xml_node reference);

/// The width of a line that tells none, in EMU.
inline constexpr std::int64_t usualLineWeight = 9525;

}  // namespace vellumark::deck
