#include "ui/win32/whole_screen.h"

#include <utility>

#include "base/error.h"

namespace vellumark::ui::win32 {
namespace {

[[noreturn]] void fail(const char* what) {
  base::raise(base::errors::unspecific, base::standardDescription(base::errors::unspecific) + ": " + what);
}

/// The screen to read from.
class ScreenContext {
 public:
  ScreenContext() : context_(GetDC(GetDesktopWindow())) {}
  ~ScreenContext() { ReleaseDC(GetDesktopWindow(), context_); }
  ScreenContext(const ScreenContext&) = delete;
  ScreenContext& operator=(const ScreenContext&) = delete;
  HDC handle() const { return context_; }

 private:
  HDC context_;
};

class LowLevelHook : public MouseHook {
 public:
  LowLevelHook(HINSTANCE instance, MouseProc procedure) : procedure_(std::move(procedure)), before_(current) {
    current = this;
    constexpr int lowLevelMouse = 14;
    handle_ = SetWindowsHookExA(lowLevelMouse, received, instance, 0);
    if (!handle_) {
      current = before_;
      fail("The system lets no hook watch the mouse.");
    }
  }
  ~LowLevelHook() override {
    UnhookWindowsHookEx(handle_);
    current = before_;
  }
  LowLevelHook(const LowLevelHook&) = delete;
  LowLevelHook& operator=(const LowLevelHook&) = delete;

 private:
  static LRESULT CALLBACK received(int code, WPARAM message, LPARAM data) {
    switch (current ? current->answer(code, message) : MouseAnswer::passOn) {
      case MouseAnswer::drop:
        return 0;
      case MouseAnswer::swallow:
        return -1;
      case MouseAnswer::passOn:
        break;
    }
    return CallNextHookEx(current ? current->handle_ : nullptr, code, message, data);
  }

  MouseAnswer answer(int code, WPARAM message) const noexcept {
    try {
      return procedure_(code, static_cast<std::uint32_t>(message));
    } catch (...) {
      // Whatever fails here, the mouse must go on.
      return MouseAnswer::passOn;
    }
  }

  static LowLevelHook* current;
  MouseProc procedure_;
  LowLevelHook* before_;
  HHOOK handle_ = nullptr;
};

LowLevelHook* LowLevelHook::current = nullptr;

}  // namespace

Point WholeScreen::cursor() {
  // A locked screen doesn't tell.
  POINT place = {};
  if (GetCursorPos(&place)) last_ = {static_cast<int>(place.x), static_cast<int>(place.y)};
  return last_;
}

Size WholeScreen::size() {
  const ScreenContext screen;
  return {GetDeviceCaps(screen.handle(), HORZRES), GetDeviceCaps(screen.handle(), VERTRES)};
}

std::vector<Color> WholeScreen::copy(const Rect& area) {
  const ScreenContext screen;
  BITMAPINFO format = {};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = area.width;
  format.bmiHeader.biHeight = -area.height;  // the topmost row first
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  HBITMAP bitmap = CreateDIBSection(screen.handle(), &format, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (!bitmap) fail("The colors of the screen can't be read.");
  HDC memory = CreateCompatibleDC(screen.handle());
  const HGDIOBJ before = SelectObject(memory, bitmap);
  StretchBlt(memory, 0, 0, area.width, area.height, screen.handle(), area.x, area.y, area.width, area.height,
             SRCCOPY);
  GdiFlush();
  std::vector<Color> colors;
  const auto* pixels = static_cast<const RGBQUAD*>(bits);
  for (int i = 0; i < area.width * area.height; ++i) {
    colors.push_back(rgb(pixels[i].rgbRed, pixels[i].rgbGreen, pixels[i].rgbBlue));
  }
  SelectObject(memory, before);
  DeleteDC(memory);
  DeleteObject(bitmap);
  return colors;
}

Color WholeScreen::pixel(const Point& point) {
  const ScreenContext screen;
  const COLORREF color = GetPixel(screen.handle(), point.x, point.y);
  if (color == CLR_INVALID) fail("The color of that pixel can't be read.");
  return color;
}

std::unique_ptr<MouseHook> WholeScreen::hookMouse(MouseProc procedure) {
  return std::make_unique<LowLevelHook>(instance_, std::move(procedure));
}

}  // namespace vellumark::ui::win32
