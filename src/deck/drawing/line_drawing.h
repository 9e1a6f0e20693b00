#pragma once
// Lines as they are drawn, with the arrow heads at their ends.

#include "deck/drawing/paints.h"
#include "platform/drawing.h"

namespace vellumark::deck {

/// Appends a path drawn with a line. Ends stand where the path is open; a head covers the end of the line.
void drawLine(const platform::Path& path, const Line& line, platform::Drawing& drawing);

}  // namespace vellumark::deck
