#pragma once
// Puts an element on the slide in view: all shapes of one slide of another presentation, by way of the
// clipboard.

#include <functional>
#include <string>

#include "host/command_bars.h"
#include "host/presentation.h"

namespace vellumark::library {

/// Opens a presentation without a window, copies all shapes of the slide that `find` takes from it, pastes
/// them into the active window and closes the presentation. What the host's paste selects is selected. A
/// failure goes to the caller, and leaves the other presentation open.
void insertSlide(const std::string& path, const std::function<host::Slide(const host::Slides&)>& find);

/// Inserts the element that a toolbar's button stands for: one of the user's own by the slide id in its
/// Parameter, or one of the style in that folder by "file,slide number". Tells the user where that can't be
/// done; a failure is reported here, and leaves the other presentation open.
void conjure(const host::CommandBarButton& button, const std::string& styleFolder, bool isMyElements);

}  // namespace vellumark::library
