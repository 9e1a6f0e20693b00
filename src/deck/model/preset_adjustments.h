#pragma once
// The guides that each preset geometry can be adjusted by, with the values that they have in a shape which
// says nothing.

#include <cstdint>
#include <span>
#include <string_view>

namespace vellumark::deck {

/// How a guide is counted: 100000 to one, 60000 to the degree, or a stretching factor that belongs to the
/// preset's proportions and is no adjustment of the object model.
enum class GuideKind : std::uint8_t { ratio, angle, factor };

struct PresetGuide {
  const char* name = nullptr;
  std::int32_t value = 0;
  GuideKind kind = GuideKind::ratio;
};

/// The guides of a preset in order; empty where it has none or is unknown.
std::span<const PresetGuide> presetGuides(std::string_view preset);

}  // namespace vellumark::deck
