#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace vellumark::platform {

struct PickedColor {
  std::optional<std::array<double, 3>>
      color;            ///< red, green and blue from 0 to 1; nothing where none was taken
  std::string refusal;  ///< why the desktop can't be asked; empty where it could
};

/// Lets the user pick a colour anywhere on the screen with the picker of the desktop
/// (org.freedesktop.portal.Screenshot on the session bus), and waits for it. `goesOn` is called again and
/// again meanwhile; false gives up.
PickedColor pickDesktopColor(const std::function<bool()>& goesOn);

}  // namespace vellumark::platform
