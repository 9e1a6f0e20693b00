#pragma once
// The text frame of a shape: margins, wrapping, fitting, and its text.

#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

host::ObjectRef makeTextFrame(const HostRef& host, const ShapeKey& shape);
/// The later text model of the same frame.
host::ObjectRef makeTextFrame2(const HostRef& host, const ShapeKey& shape);

}  // namespace vellumark::deck
