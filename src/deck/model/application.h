#pragma once

#include "deck/model/host_state.h"

namespace vellumark::deck {

/// The Application object of the embedded host; it raises the application's events.
host::ObjectRef makeApplication(const HostRef& host);

}  // namespace vellumark::deck
