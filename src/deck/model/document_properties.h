#pragma once
// What a file tells of its slides beside them: docProps/app.xml with their number and titles, and the picture
// of the first one.

#include <cstdint>
#include <vector>

#include "deck/model/document.h"

namespace vellumark::deck {

/// Brings these to what the presentation is now, where it has them and they were true of the slides `told`,
/// given by id in order. Only slides that were changed or are new are read for their titles. The numbers of
/// words and paragraphs, which would ask for all slides, go where others change. A picture of a slide that is
/// no longer the first goes.
void tellOfSlides(Document& document, const std::vector<std::int32_t>& told);
/// Counts a slide's new notes page there.
void tellOfNotesPage(Document& document);

}  // namespace vellumark::deck
