#pragma once
// What kind of object a shape is in the host's terms.

#include <cstdint>

#include "deck/model/document.h"

namespace vellumark::deck {

/// MsoShapeType. A placeholder is one whatever it holds; a line is every connector and every shape with a
/// line's geometry; -2 for a graphic frame with contents that the host has no type for.
std::int32_t shapeType(const ShapeKey& shape);

/// Whether a shape can hold text of its own: auto shapes, freeforms, text boxes and placeholders that hold
/// neither picture nor graphic.
bool hasTextFrame(const ShapeKey& shape);
bool hasTable(const ShapeKey& shape);
bool hasChart(const ShapeKey& shape);

}  // namespace vellumark::deck
