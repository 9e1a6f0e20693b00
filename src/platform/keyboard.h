#pragma once
// Which keys are held down at this moment, whoever has the keyboard.

#include <functional>

namespace vellumark::platform {

enum class Key { control, shift };

/// On Linux the display tells (X11, through libX11, which is loaded only for this); without a display no key
/// is down.
bool isKeyDown(Key key);

/// Whoever answers for the keyboard instead; an empty function gives it back to the system.
using KeyReader = std::function<bool(Key)>;
void setKeyReader(KeyReader reader);

namespace detail {
/// What the system says.
bool isSystemKeyDown(Key key);
}  // namespace detail

}  // namespace vellumark::platform
