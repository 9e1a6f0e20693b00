#pragma once

#include <windows.h>

#include "ui/screen.h"

namespace vellumark::ui::win32 {

/// What all windows of the system show. Only one hook is there at a time, on the thread that set it, which
/// has to handle its messages meanwhile.
class WholeScreen : public Screen {
 public:
  explicit WholeScreen(HINSTANCE instance) : instance_(instance) {}

  Point cursor() override;
  /// Of the primary screen, which begins at (0, 0).
  Size size() override;
  std::vector<Color> copy(const Rect& area) override;
  Color pixel(const Point& point) override;
  std::unique_ptr<MouseHook> hookMouse(MouseProc procedure) override;

 private:
  HINSTANCE instance_;
  Point last_;  ///< where the cursor was when the system told it last
};

}  // namespace vellumark::ui::win32
