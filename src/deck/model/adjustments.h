#pragma once
// The yellow handles of auto shapes.

#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

/// Adjustments of a shape, from 1: ratios, or degrees for angles. Hosts up to 11.0 measure the heads of
/// arrows along the arrow, not by the shorter side, and shafts from the edge.
host::ObjectRef makeAdjustments(const HostRef& host, const ShapeKey& shape);

}  // namespace vellumark::deck
