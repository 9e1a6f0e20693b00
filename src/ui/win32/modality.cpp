#include "ui/win32/modality.h"

#include <string>

#include "ui/win32/form_window.h"

namespace vellumark::ui::win32 {
namespace {

BOOL CALLBACK collect(HWND window, LPARAM windows) {
  if (IsWindowVisible(window) && IsWindowEnabled(window)) {
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
  }
  return TRUE;
}

bool hasCaption(HWND window) { return (GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION; }

/// A form that may go by itself any moment, and would take along what it owns.
bool isBareForm(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return std::wstring(name) == FormClass::name && !hasCaption(window);
}

/// The visible windows of the thread that take input, in the order in which they lie, the topmost first.
std::vector<HWND> threadWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), collect, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

}  // namespace

HWND ownerWindow() {
  HWND active = GetActiveWindow();
  if (active && isBareForm(active)) active = GetWindow(active, GW_OWNER);
  if (active && IsWindowVisible(active)) return active;
  // The program isn't in front. Tool windows come and go, a window with a caption is there to stay.
  for (HWND window : threadWindows()) {
    if (hasCaption(window)) return window;
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
