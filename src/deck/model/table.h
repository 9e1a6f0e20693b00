#pragma once
// Tables: rows, columns, cells.

#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

host::ObjectRef makeTable(const HostRef& host, const ShapeKey& shape);
/// The shape that a cell (a:tc) is to the host.
host::ObjectRef makeCellShape(const HostRef& host, const ShapeKey& cell);

}  // namespace vellumark::deck
