#pragma once
// The corner points of freeforms.

#include "deck/model/document.h"
#include "deck/model/host_state.h"

namespace vellumark::deck {

/// The nodes of a shape; -2147024809 where it is no freeform.
host::ObjectRef makeNodes(const HostRef& host, const ShapeKey& shape);

}  // namespace vellumark::deck
