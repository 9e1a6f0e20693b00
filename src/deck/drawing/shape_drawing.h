#pragma once
// Shapes as a picture, as the host puts it on the clipboard.

#include <vector>

#include "deck/model/document.h"
#include "platform/drawing.h"

namespace vellumark::deck {

/// What shapes of one sheet look like, the first at the back: forms, fills, lines with their ends, texts,
/// pictures, tables, groups and the pictures of objects. It reaches as far as they do. Charts and diagrams
/// are drawn as a sign for them; shadows, reflections and other effects are left out, and shapes that are
/// hidden or deleted.
platform::Drawing drawShapes(const std::vector<ShapeKey>& shapes);

}  // namespace vellumark::deck
