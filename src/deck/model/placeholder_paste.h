#pragma once
// What becomes of placeholders that come to another sheet.

#include <vector>

#include "deck/model/document.h"

namespace vellumark::deck {

/// Finds a place for copies of placeholders, `copies[i]` being that of `sources[i]`. On a slide whose layout
/// has a placeholder of that kind which no other shape takes, the copy takes it and has its frame from there
/// unless it has one of its own. Everywhere else it becomes a plain shape that looks and lies like the
/// original: frame, outline, fill, line and text formats that it inherited are written into it.
void placePlaceholders(const std::vector<ShapeKey>& copies, const std::vector<ShapeKey>& sources);

}  // namespace vellumark::deck
