#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vellumark::ui {

/// A colour with red in the low byte, as the host counts colours.
using Color = std::uint32_t;

constexpr Color rgb(int red, int green, int blue) {
  return static_cast<Color>(red) | static_cast<Color>(green) << 8 | static_cast<Color>(blue) << 16;
}
constexpr int redOf(Color color) { return static_cast<int>(color & 0xFF); }
constexpr int greenOf(Color color) { return static_cast<int>(color >> 8 & 0xFF); }
constexpr int blueOf(Color color) { return static_cast<int>(color >> 16 & 0xFF); }

/// The colour of six hexadecimal digits, red first; nothing where the text is none.
std::optional<Color> colorFromDigits(std::string_view digits);

}  // namespace vellumark::ui
