#include "windows/driven_mouse.h"

namespace vellumark::app {
namespace {

constexpr const wchar_t* windowName = L"VellumarkColor";
constexpr int side = 40;

/// A window of one colour in a corner of the screen.
class ColorWindow {
 public:
  ColorWindow(ui::Color color, HWND dialog) : brush_(CreateSolidBrush(color)) {
    WNDCLASSW kind = {};
    kind.lpfnWndProc = DefWindowProcW;
    kind.hbrBackground = brush_;
    kind.lpszClassName = windowName;
    RegisterClassW(&kind);
    RECT taken = {};
    GetWindowRect(dialog, &taken);
    const RECT corner = {0, 0, side, side};
    RECT common = {};
    const int left = IntersectRect(&common, &corner, &taken) ? GetSystemMetrics(SM_CXSCREEN) - side : 0;
    window_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, windowName, L"", WS_POPUP,
                              left, 0, side, side, nullptr, nullptr, nullptr, nullptr);
    ShowWindow(window_, SW_SHOWNOACTIVATE);
    UpdateWindow(window_);
    middle_ = {left + side / 2, side / 2};
  }
  ~ColorWindow() {
    DestroyWindow(window_);
    UnregisterClassW(windowName, nullptr);
    DeleteObject(brush_);
  }
  ColorWindow(const ColorWindow&) = delete;
  ColorWindow& operator=(const ColorWindow&) = delete;

  ui::Point middle() const { return middle_; }

 private:
  HBRUSH brush_;
  HWND window_;
  ui::Point middle_;
};

/// Lets everything happen that is due within a few beats of whoever follows the mouse.
void wait() {
  constexpr DWORD moment = 150;  // milliseconds
  const DWORD start = GetTickCount();
  while (GetTickCount() - start < moment) {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    Sleep(5);
  }
}

void clickAt(ui::Point place) {
  SetCursorPos(place.x, place.y);
  wait();
  for (const DWORD event : {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = event;
    SendInput(1, &input, sizeof input);
    wait();
  }
}

}  // namespace

void clickScreen(const ui::ScreenClick& click, HWND dialog) {
  if (!click.color) return clickAt(click.place);
  const ColorWindow window(*click.color, dialog);
  clickAt(window.middle());
}

}  // namespace vellumark::app
