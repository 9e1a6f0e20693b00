#pragma once
// Tables as they are drawn: the cells' fills, texts and borders.

#include "deck/model/document.h"
#include "platform/drawing.h"

namespace vellumark::deck {

/// Appends a table. `turn` brings the slide's points before the frame's rotation to where they are drawn.
void drawTable(const ShapeKey& table, const platform::Affine& turn, platform::Drawing& drawing);

}  // namespace vellumark::deck
