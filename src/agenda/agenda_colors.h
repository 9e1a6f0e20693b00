#pragma once

#include <pugixml.hpp>
#include <string>

#include "host/shape.h"

namespace vellumark::agenda {

/// Sets a colour: "#" and six hexadecimal digits of red, green and blue, or else the number of a place in the
/// colour scheme, so that it follows the presentation.
void setColor(const host::ColorFormat& color, const std::string& value);

/// Gives a generated rectangle its kind, and fill and line as an element of the style has them.
void colorShape(const host::Shape& shape, const char* kind, const pugi::xml_node& look);

}  // namespace vellumark::agenda
