#pragma once
// Names for presentations that are made from slides of another one.

#include <string>
#include <vector>

#include "host/presentation.h"

namespace vellumark::tools {

/// The extension of presentations on this host, with its dot.
std::string getExtension();

/// The slides of a range one by one, which stay what they are while the selection changes.
std::vector<host::Slide> slidesOf(const host::SlideRange& range);

}  // namespace vellumark::tools
