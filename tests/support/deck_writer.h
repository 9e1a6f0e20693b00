#pragma once
// A gathered deck as the entries of its package.

#include "support/deck_model.h"
#include "support/zip_entries.h"

namespace vellumark::test {

ZipEntries deckEntries(const DeckData& deck);

}  // namespace vellumark::test
