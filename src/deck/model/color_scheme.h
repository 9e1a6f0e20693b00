#pragma once

#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

/// The eight colours that a sheet is drawn with, as its theme has them and its map of colours assigns them.
host::ObjectRef makeColorScheme(const HostRef& host, const Sheet& sheet);

}  // namespace vellumark::deck
