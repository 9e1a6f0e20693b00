#include "platform/keyboard.h"

#include <windows.h>

namespace vellumark::platform {

bool detail::isSystemKeyDown(Key key) {
  constexpr int downNow = 0x8000;
  return (GetAsyncKeyState(key == Key::control ? VK_CONTROL : VK_SHIFT) & downNow) != 0;
}

}  // namespace vellumark::platform
