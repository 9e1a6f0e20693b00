#pragma once
// The host's layout numbers and the layout types of the file.

#include <cstdint>
#include <string_view>

namespace vellumark::deck {

/// PpSlideLayout of a p:sldLayout/@type; 32 (custom) for a type that has none.
std::int32_t layoutNumber(std::string_view type);
/// The type that a PpSlideLayout stands for; empty where there is none.
std::string_view layoutType(std::int32_t number);

}  // namespace vellumark::deck
