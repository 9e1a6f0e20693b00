#pragma once

#include "host/presentation.h"

namespace vellumark::tools {

/// Whether a slide has a notes page, asked before one is looked at: the host makes the page of a slide that
/// has none as soon as it is asked for. Hosts before 14.0 can't tell, so that the answer there is yes.
bool hasNotesPage(const host::Slide& slide);

}  // namespace vellumark::tools
