#include "ui/win32/modality.h"

namespace vellumark::ui::win32 {
namespace {

BOOL CALLBACK collect(HWND window, LPARAM windows) {
  if (IsWindowVisible(window) && IsWindowEnabled(window)) {
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
  }
  return TRUE;
}

/// The visible windows of the thread that take input, in the order in which they lie, the topmost first.
std::vector<HWND> threadWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

}  // namespace

HWND ownerWindow() {
  if (HWND active = GetActiveWindow(); active && IsWindowVisible(active)) return active;
  // The program isn't in front. Tool windows come and go, a window with a caption is there to stay.
  for (HWND window : threadWindows()) {
    if ((GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION) return window;
  }
  return nullptr;
}

Modality::Modality(HWND except) {
  for (HWND window : threadWindows()) {
    if (window == except) continue;
    EnableWindow(window, FALSE);
    disabled_.push_back(window);
  }
}

Modality::~Modality() {
  for (HWND window : disabled_) {
    if (IsWindow(window)) EnableWindow(window, TRUE);
  }
}

}  // namespace vellumark::ui::win32
