#pragma once
// Copies of shapes on the same or another sheet, within a presentation or from one into another.

#include <vector>

#include "deck/model/document.h"
#include "deck/package/part_copier.h"

namespace vellumark::deck {

/// Copies shapes of one sheet, in that order, in front of all that stand on another, with everything that
/// they refer to: pictures, charts, diagrams, embedded objects, films, tags, links. The copies have ids of
/// their own, which connectors among them follow; connectors to shapes that are not copied come loose, and
/// links to slides that the other presentation lacks go. A member of a group is copied as it lies on the
/// slide. Placeholders stay placeholders: what becomes of them is the caller's to say.
std::vector<ShapeKey> copyShapes(const std::vector<ShapeKey>& shapes, const Sheet& target,
                                 PartCopier& copier);

/// Shapes without those that stand in a group among them, the one at the back first.
std::vector<ShapeKey> inZOrder(const std::vector<ShapeKey>& shapes);

}  // namespace vellumark::deck
