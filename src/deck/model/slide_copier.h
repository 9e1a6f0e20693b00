#pragma once
// Copies of slides, within a presentation or from one into another.

#include <cstdint>
#include <functional>
#include <vector>

#include "deck/model/document.h"
#include "deck/package/part_copier.h"

namespace vellumark::deck {

/// The layout that a slide follows in a presentation: its own; in another presentation that of the same name,
/// else of the same type, else a copy of its own under the first master. "Invalid request." where there is no
/// master with a layout.
Sheet layoutIn(Document& target, const Sheet& slide, PartCopier& copier);

/// Copies slides of one presentation into `target`, before `position` (from 0), in that order; their ids. A
/// slide comes with its notes, tags, animations and everything that it refers to, and without its comments
/// where the other presentation doesn't know their authors. `layoutOf` tells the layout that a slide follows
/// there.
std::vector<std::int32_t> copySlides(const std::vector<Sheet>& slides, Document& target, std::size_t position,
                                     PartCopier& copier,
                                     const std::function<Sheet(const Sheet& slide)>& layoutOf);
/// The same with layoutIn().
std::vector<std::int32_t> copySlides(const std::vector<Sheet>& slides, Document& target, std::size_t position,
                                     PartCopier& copier);

}  // namespace vellumark::deck
