#pragma once
// The text of a shape as letters to draw.

#include "deck/model/document.h"
#include "platform/drawing.h"

namespace vellumark::deck {

/// Appends the text of a shape or of a table's cell, bullets and underlines with it. `turn` brings the
/// slide's points before the shape's rotation to where they are drawn.
void drawText(const ShapeKey& shape, const platform::Affine& turn, platform::Drawing& drawing);

}  // namespace vellumark::deck
