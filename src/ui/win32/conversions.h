#pragma once
// Between the forms' texts and those of the system.

#include <windows.h>

#include <string>
#include <string_view>

#include "platform/win32/wide.h"

namespace vellumark::ui::win32 {

using platform::win32::fromWide;
using platform::win32::toWide;

/// With a carriage return and a line feed for all line ends, as edit fields want them.
std::wstring toWideLines(std::string_view text);

/// What is held down with the message that is being handled, as keys.h counts it.
int heldKeys();

std::wstring textOf(HWND window);
/// Sets a window's text where it differs, which spares it from flickering.
void showText(HWND window, const std::wstring& text);

}  // namespace vellumark::ui::win32
