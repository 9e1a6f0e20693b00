#pragma once
// New shapes.

#include <cstdint>

#include "deck/model/document.h"

namespace vellumark::deck {

/// Where a new shape is to lie, in points.
struct NewFrame {
  float left;
  float top;
  float width;
  float height;
};

/// A new auto shape in front of all others, in the style that the theme gives to shapes. -2147024809 for a
/// type without a preset, a negative size, and what the file can't hold.
ShapeKey addAutoShape(const Sheet& sheet, std::int32_t type, const NewFrame& frame);

/// A new text box without fill and line whose height follows the text; `orientation` is MsoTextOrientation
/// (1 horizontal, 2 upward, 3 downward, ...).
ShapeKey addTextBox(const Sheet& sheet, std::int32_t orientation, const NewFrame& frame);

/// Brings back a placeholder of the layout that a slide has lost. "Invalid request." where the slide has all
/// of that type (PpPlaceholderType) that its layout has. It lies as on the layout.
ShapeKey addPlaceholder(const Sheet& sheet, std::int32_t type);

}  // namespace vellumark::deck
