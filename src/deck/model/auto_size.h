#pragma once
// Shapes that follow their text.

#include "deck/model/document.h"

namespace vellumark::deck {

/// To be called after every change of a shape's text, its format or its box: marks the sheet as changed, and
/// brings a shape that is fitted to its text to the size that it then needs, the row of a table to its
/// height.
void textChanged(const ShapeKey& shape);

}  // namespace vellumark::deck
