#pragma once
// Between the forms' texts and those of the system.

#include <windows.h>

#include <string>
#include <string_view>

namespace vellumark::ui::win32 {

std::wstring toWide(std::string_view text);
/// With a carriage return and a line feed for all line ends, as edit fields want them.
std::wstring toWideLines(std::string_view text);
std::string fromWide(std::wstring_view text);

std::wstring textOf(HWND window);
/// Sets a window's text where it differs, which spares it from flickering.
void showText(HWND window, const std::wstring& text);

}  // namespace vellumark::ui::win32
