#pragma once
// Colours as the host has them: 24 bits, red in the low byte.

#include <cstdint>

namespace vellumark::ui {

struct Color {
  std::uint32_t value = 0;

  constexpr std::uint8_t red() const { return static_cast<std::uint8_t>(value); }
  constexpr std::uint8_t green() const { return static_cast<std::uint8_t>(value >> 8); }
  constexpr std::uint8_t blue() const { return static_cast<std::uint8_t>(value >> 16); }
  constexpr bool operator==(const Color&) const = default;
};

constexpr Color rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
  return {static_cast<std::uint32_t>(red | green << 8 | blue << 16)};
}

inline constexpr Color black{0};
inline constexpr Color white{0xFFFFFF};

}  // namespace vellumark::ui
