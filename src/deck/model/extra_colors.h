#pragma once

#include "deck/model/host_state.h"

namespace vellumark::deck {

/// The colours that the user mixed, the oldest first and eight at most: p:clrMru of the presentation's
/// properties. A colour that is there already stays where it is; a ninth one drops the oldest.
host::ObjectRef makeExtraColors(const HostRef& host, const DocumentRef& document);

}  // namespace vellumark::deck
