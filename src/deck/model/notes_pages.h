#pragma once
// Notes pages and the notes master that they follow.

#include "deck/model/document.h"
#include "deck/package/part_copier.h"

namespace vellumark::deck {

/// The notes page of a slide. Where it has none, one with the placeholders of slide image, notes and page
/// number, which becomes part of the file when it is first changed.
Sheet notesPage(const Sheet& slide);
/// Whether the file has one.
bool hasNotesPage(const Sheet& slide);

/// Copies the notes page of a slide, if it has one, to a slide of the same or another presentation, which
/// gets a notes master like that of the source where it has none.
void copyNotesPage(const Sheet& slide, const Sheet& to, PartCopier& copier);

}  // namespace vellumark::deck
