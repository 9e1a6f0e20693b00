#pragma once
// What the add-in is told of its host.

#include "host/application.h"

namespace vellumark::addin {

/// The host as the add-in shall see it: a later one than PowerPoint 2010 presents itself as that, 14.0, the
/// last version whose object model the add-in knows, and which later ones have kept. Everything else goes to
/// the host as it is. Where the setting `hostVersionAsReported` is on, the host keeps its own version; the
/// add-in then has neither toolbars nor a ribbon that follows the selection on a version that it doesn't
/// know.
host::Application knownHost(const host::Application& application);

}  // namespace vellumark::addin
