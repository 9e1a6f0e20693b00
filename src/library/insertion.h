#pragma once
// Puts an element on the slide in view: all shapes of one slide of another presentation, by way of the
// clipboard. Nothing here has a trap: a failure goes to the caller, and leaves the other presentation open.

#include <functional>
#include <string>

#include "host/presentation.h"

namespace vellumark::library {

/// Opens a presentation without a window, copies all shapes of the slide that `find` takes from it, pastes
/// them into the active window and closes the presentation. What the host's paste selects is selected.
void insertSlide(const std::string& path, const std::function<host::Slide(const host::Slides&)>& find);

}  // namespace vellumark::library
