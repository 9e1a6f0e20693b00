#pragma once
// The whole screen, for a form that looks at what other programs show and takes clicks there.

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ui/color.h"
#include "ui/layout.h"

namespace vellumark::ui {

/// A pixel of the screen.
struct Point {
  int x = 0;
  int y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

constexpr bool contains(const Rect& area, const Point& point) {
  return point.x >= area.x && point.x < area.x + area.width && point.y >= area.y &&
         point.y < area.y + area.height;
}

/// What becomes of an event of the mouse: others see it, or nobody does; `drop` ends it without a word.
enum class MouseAnswer { passOn, drop, swallow };

/// What a hook asks about an event. `code` is 0 for events that are to be judged, below 0 for those that must
/// be passed on; `message` is one of Windows' messages of the mouse.
using MouseProc = std::function<MouseAnswer(int code, std::uint32_t message)>;
inline constexpr std::uint32_t leftButtonDown = 0x0201;
inline constexpr std::uint32_t rightButtonDown = 0x0204;

/// Sees what the mouse does before any window does, over all programs, until it is destroyed.
class MouseHook {
 public:
  virtual ~MouseHook() = default;
};

/// What all programs together show. Everything is in the pixels of the device.
class Screen {
 public:
  virtual ~Screen() = default;
  virtual Point cursor() = 0;
  virtual Size size() = 0;
  /// The pixels of a rectangle that lies on the screen, row by row.
  virtual std::vector<Color> copy(const Rect& area) = 0;
  virtual Color pixel(const Point& point) = 0;
  /// Raises where the system refuses.
  virtual std::unique_ptr<MouseHook> hookMouse(MouseProc procedure) = 0;
};

/// What came of asking the desktop for a colour, where no program may look for itself.
struct DesktopColor {
  std::optional<Color> color;  ///< nothing where the user took none
  std::string refusal;         ///< why the desktop can't be asked, for the user
};

}  // namespace vellumark::ui
