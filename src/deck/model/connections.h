#pragma once
// Connectors that are glued to shapes and follow them.

#include "deck/model/document.h"
#include "deck/model/shape_frame.h"

namespace vellumark::deck {

/// setSlideFrame() for a shape that is moved, stretched or turned: the ends of connectors that are glued to
/// it, or to a shape in it, stay where they touch it. The other end of such a connector stays in place.
void moveShape(const ShapeKey& shape, const ShapeFrame& frame);

}  // namespace vellumark::deck
