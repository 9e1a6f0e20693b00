#pragma once

#include <functional>

#include "platform/drawing.h"

namespace vellumark::platform::posix {

/// Takes off the clipboard what draws its picture; nothing where there is none.
std::function<Drawing()> takeOfferedDrawing();

}  // namespace vellumark::platform::posix
