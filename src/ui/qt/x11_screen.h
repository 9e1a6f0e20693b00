#pragma once

#include <memory>

#include "ui/screen.h"

struct xcb_connection_t;
struct xcb_screen_t;

namespace vellumark::ui::qt {

/// What an X server shows. It needs no application of the toolkit; hooks need its event loop.
///
/// A hook takes the buttons on the root window in such a way that the server holds each press back until it
/// is told what to do with it. The server forgets hooks of a program that ends, however that ends.
class X11Screen : public Screen {
 public:
  /// The screen of DISPLAY; nothing where no server answers, or where the server is only a guest of a
  /// compositor that keeps other programs' windows to itself.
  static std::unique_ptr<X11Screen> open();
  ~X11Screen() override;
  X11Screen(const X11Screen&) = delete;
  X11Screen& operator=(const X11Screen&) = delete;

  Point cursor() override;
  Size size() override;
  std::vector<Color> copy(const Rect& area) override;
  Color pixel(const Point& point) override;
  std::unique_ptr<MouseHook> hookMouse(MouseProc procedure) override;

 private:
  X11Screen(xcb_connection_t* connection, xcb_screen_t* screen) : connection_(connection), screen_(screen) {}

  xcb_connection_t* connection_;
  xcb_screen_t* screen_;
};

}  // namespace vellumark::ui::qt
