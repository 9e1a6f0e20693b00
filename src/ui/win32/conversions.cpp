#include "ui/win32/conversions.h"

#include "ui/keys.h"

namespace vellumark::ui::win32 {

std::wstring toWideLines(std::string_view text) {
  std::wstring lines;
  const std::wstring units = toWide(text);
  for (std::size_t i = 0; i < units.size(); ++i) {
    const bool pair = units[i] == L'\r' && i + 1 < units.size() && units[i + 1] == L'\n';
    if (units[i] == L'\r' || units[i] == L'\n') {
      lines += L"\r\n";
      if (pair) ++i;
    } else {
      lines += units[i];
    }
  }
  return lines;
}

int heldKeys() {
  const auto held = [](int key, int bit) { return GetKeyState(key) < 0 ? bit : 0; };
  return held(VK_SHIFT, keys::shift) + held(VK_CONTROL, keys::control) + held(VK_MENU, keys::alt);
}

std::wstring textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

void showText(HWND window, const std::wstring& text) {
  if (textOf(window) != text) SetWindowTextW(window, text.c_str());
}

}  // namespace vellumark::ui::win32
