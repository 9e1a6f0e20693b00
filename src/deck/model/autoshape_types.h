#pragma once
// The host's auto shape types and the preset geometries of the file.

#include <cstdint>
#include <string_view>

namespace vellumark::deck {

/// MsoAutoShapeType of a preset ("rect" is 1); -2 where no type stands for it (lines and connectors).
std::int32_t autoShapeType(std::string_view preset);
/// The preset of an MsoAutoShapeType; empty where there is none.
std::string_view presetOf(std::int32_t autoShapeType);
/// The English name that a new shape of that type is given ("Rounded Rectangle"); empty where there is none.
std::string_view autoShapeName(std::int32_t autoShapeType);

}  // namespace vellumark::deck
