#pragma once

#include "ui/canvas.h"

namespace vellumark::tools {

/// The product's mark over a strip of colours, 64 pixels each way.
void drawLogo(ui::Canvas& canvas);
/// A tile of slanted lines, 8 pixels each way.
void drawHatch(ui::Canvas& canvas);

}  // namespace vellumark::tools
