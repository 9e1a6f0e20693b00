#pragma once
// What everything that puts shapes on the slide in view asks first.

#include <string>

namespace vellumark::core {

/// Whether shapes can be put there now: a window is open, its presentation has slides, and its active pane
/// takes shapes, or comes to be one that does (lists of slides give way to the slide). Otherwise a message
/// tells what to do "before " + `purpose` ("adding elements").
bool requireSlideInView(const std::string& purpose);

}  // namespace vellumark::core
