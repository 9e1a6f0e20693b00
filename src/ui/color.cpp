#include "ui/color.h"

#include <charconv>

namespace vellumark::ui {

std::optional<Color> colorFromDigits(std::string_view digits) {
  constexpr std::size_t length = 6;
  constexpr int hexadecimal = 16;
  std::uint32_t number = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, hexadecimal);
  if (digits.size() != length || error != std::errc() || end != digits.data() + length) return std::nullopt;
  return rgb(static_cast<int>(number >> 16), static_cast<int>(number >> 8 & 0xFF),
             static_cast<int>(number & 0xFF));
}

}  // namespace vellumark::ui
