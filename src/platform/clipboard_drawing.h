#pragma once
// The picture of what a host copied, on the system's clipboard.

#include <functional>

#include "platform/drawing.h"

namespace vellumark::platform {

/// Puts a picture on the clipboard, in the place of what is there. `draw` is called when somebody takes the
/// picture, or at once where the system can't wait.
void offerDrawing(std::function<Drawing()> draw);

/// What was offered can't be drawn any more. A picture that the system has already stays there.
void withdrawDrawing();

}  // namespace vellumark::platform
