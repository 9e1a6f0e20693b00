#pragma once

#include "deck/model/host_state.h"

namespace vellumark::deck {

/// The colours that the user mixed: p:clrMru of the presentation's properties, the last one first.
host::ObjectRef makeExtraColors(const HostRef& host, const DocumentRef& document);

}  // namespace vellumark::deck
