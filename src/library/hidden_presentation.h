#pragma once
// Presentations that the add-in works with behind the user's back: stores and templates.

#include <string>

#include "host/presentation.h"

namespace vellumark::library {

/// Opens a presentation without a window.
host::Presentation openHidden(const std::string& path);
/// Closes it as it was saved last; nobody is asked.
void closeUnsaved(const host::Presentation& presentation);

}  // namespace vellumark::library
