#pragma once
// Pictures made in code.

#include <string>

namespace vellumark::decks {

/// A PNG of one colour, "RRGGBB".
std::string png(int width, int height, const std::string& color);

}  // namespace vellumark::decks
