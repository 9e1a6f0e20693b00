#pragma once
// Collections of shapes that only other shapes make.

#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

/// The members of a group, all levels flat.
host::ObjectRef makeGroupShapes(const HostRef& host, const ShapeKey& group);

}  // namespace vellumark::deck
