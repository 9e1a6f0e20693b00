#pragma once
// Shapes that follow their text.

#include "deck/model/document.h"
#include "deck/model/shape_frame.h"

namespace vellumark::deck {

/// To be called after every change of a shape's text, its format or its box: marks the sheet as changed, and
/// brings a shape that is fitted to its text to the size that it then needs, the row of a table to its
/// height.
void textChanged(const ShapeKey& shape);

/// To be called after a change of a shape's size or form: brings a shape that is fitted to its text, and such
/// shapes in a group, to the size that the text then needs.
void fitToText(const ShapeKey& shape);
/// Takes out of a new frame what the text decides and nobody else: the height of a fitted shape, its width
/// too where it doesn't wrap.
void keepFitted(const ShapeKey& shape, const ShapeFrame& now, ShapeFrame& frame);

}  // namespace vellumark::deck
