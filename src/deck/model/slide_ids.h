#pragma once
// The ids by which slides are known.

#include <pugixml.hpp>

namespace vellumark::deck {

inline constexpr int lowestSlideId = 256;

/// Gives slides whose id another slide before them has, or that have none, ids of their own; the sections
/// follow where they list a slide as often as the presentation does. Whether there were such slides.
bool separateSlideIds(pugi::xml_node presentation);

}  // namespace vellumark::deck
