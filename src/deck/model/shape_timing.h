#pragma once
// Animations of a slide that belong to shapes.

#include <cstdint>
#include <set>

#include "deck/model/document.h"

namespace vellumark::deck {

/// Takes the animations of shapes that are gone out of a slide's timing: their effects, media nodes, triggers
/// and build entries, and what becomes empty by that.
void forgetAnimations(const Sheet& sheet, const std::set<std::int32_t>& ids);

}  // namespace vellumark::deck
