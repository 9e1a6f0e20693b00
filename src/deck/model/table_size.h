#pragma once
// The size of tables, whose columns and rows are what they are made of: the frame says no more than their
// sum.

#include "deck/model/document.h"
#include "deck/model/shape_frame.h"

namespace vellumark::deck {

/// Brings the columns and rows of a table along with a frame that had another size before. Rows stay as high
/// as their text needs, and the frame with them.
void stretchTable(const ShapeKey& table, const ShapeFrame& before);

/// Makes a row as high as the text of one of its cells needs, and the table with it. Rows never get lower.
void fitRow(const ShapeKey& cell);

}  // namespace vellumark::deck
