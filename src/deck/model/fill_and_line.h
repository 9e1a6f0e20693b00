#pragma once
// Fill and outline of a shape.

#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

host::ObjectRef makeFillFormat(const HostRef& host, const ShapeKey& shape);
host::ObjectRef makeLineFormat(const HostRef& host, const ShapeKey& shape);

}  // namespace vellumark::deck
