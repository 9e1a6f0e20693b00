#pragma once
// The ruler of a text frame: indents level by level, and tab stops.

#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

host::ObjectRef makeRuler(const HostRef& host, const ShapeKey& shape);

}  // namespace vellumark::deck
