#pragma once
// Tables: rows, columns, cells.

#include "deck/model/host_state.h"
#include "host/shape.h"

namespace vellumark::deck {

host::ObjectRef makeTable(const HostRef& host, const ShapeKey& shape);
/// Adds a cell to the selected cells of its table, as a user who drags the mouse does.
void addToSelection(const HostRef& host, const host::Cell& cell);
/// The shape that a cell (a:tc) is to the host.
host::ObjectRef makeCellShape(const HostRef& host, const ShapeKey& cell);

}  // namespace vellumark::deck
