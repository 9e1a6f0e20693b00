#pragma once
// The hook that catches clicks all over the screen while a colour is picked, and what it shares with the
// dialog. All of it happens on the host's one thread.

#include <cstdint>

#include "ui/screen.h"

namespace vellumark::tools::mouseHook {

extern bool cursorInDialog;  ///< set by the dialog's timer: the cursor is over the dialog
extern bool colorClicked;    ///< set by a click outside the dialog, cleared when the pixel was sampled

/// What becomes of an event of the mouse: a click outside the dialog is noted and swallowed, everything else
/// passed on. It sees every event of the whole system and does nothing else.
ui::MouseAnswer MouseProc(int code, std::uint32_t message);

void install(ui::Screen& screen);
/// Nothing where there is none.
void remove();

}  // namespace vellumark::tools::mouseHook
