#pragma once
// Stretches of text in the later text model; those of the earlier one are made by makeTextRange()
// (objects.h).

#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

/// All text of a shape.
host::ObjectRef makeTextRange2(const HostRef& host, const ShapeKey& shape);

}  // namespace vellumark::deck
