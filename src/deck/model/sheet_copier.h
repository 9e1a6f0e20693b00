#pragma once
// Copies of sheets that inherit from others: layouts, notes pages.

#include "deck/model/document.h"
#include "deck/package/part_copier.h"

namespace vellumark::deck {

/// The type of the relationship by which a sheet names the one that it inherits from.
const char* parentRelationship(const Sheet& parent);

/// A copy of a sheet that inherits from `parent` instead of its own parent, with everything else that it
/// refers to. What can't come along is taken out of it.
PartRef copyUnder(const Sheet& sheet, const Sheet& parent, PartCopier& copier);

}  // namespace vellumark::deck
