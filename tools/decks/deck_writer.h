#pragma once
// A gathered deck as the entries of its package.

#include "decks/deck_model.h"
#include "decks/zip_entries.h"

namespace vellumark::decks {

ZipEntries deckEntries(const DeckData& deck);

}  // namespace vellumark::decks
