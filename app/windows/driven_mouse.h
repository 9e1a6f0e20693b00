#pragma once
// The mouse of somebody who sits before the screen.

#include <windows.h>

#include "ui/headless/script.h"

namespace vellumark::app {

/// Moves the mouse to a place of the screen and clicks there, or on a window of that colour, which is there
/// just for it and leaves `dialog` free. Returns when the programs have had time to notice.
void clickScreen(const ui::ScreenClick& click, HWND dialog);

}  // namespace vellumark::app
