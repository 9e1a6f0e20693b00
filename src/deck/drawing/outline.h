#pragma once
// The form of a shape as paths.

#include <cstdint>
#include <pugixml.hpp>
#include <span>
#include <string_view>
#include <vector>

#include "platform/drawing.h"

namespace vellumark::deck {

/// How a path is filled: with the shape's fill as it is, or lighter or darker than that.
enum class PathFill : std::uint8_t { none, normal, lighten, lightenLess, darken, darkenLess };

/// One path of a form, in points from the left top corner of the frame, before the shape is turned or
/// mirrored. What comes later covers what came before.
struct OutlinePath {
  platform::Path path;
  PathFill fill = PathFill::normal;
  bool stroke = true;
};
using Outline = std::vector<OutlinePath>;

/// The form of a preset geometry in a frame of that size (points). `guides` are the values of its guides in
/// the file's units (100000 to one, 60000 to the degree), as many and in the order of presetGuides(). A
/// preset that is not known is drawn as a rectangle.
Outline presetOutline(std::string_view preset, double width, double height,
                      std::span<const std::int32_t> guides);

/// The form that an a:custGeom describes, stretched into a frame of that size. Formulas that can't be worked
/// out count as 0, and what is broken otherwise draws nothing.
Outline customOutline(pugi::xml_node geometry, double width, double height);

}  // namespace vellumark::deck
