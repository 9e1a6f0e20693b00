#pragma once

#include <string_view>

#include "deck/model/document.h"
#include "deck/package/part_copier.h"

namespace vellumark::deck {

/// Adds a layout of a type that a master lacks: blank, or with a title and a body, which follow the master's
/// where it has them. Nothing for other types.
Sheet addLayout(Document& document, const Sheet& master, std::string_view type);

/// Brings a layout of another presentation under a master, with its pictures; what it leaves to its master
/// follows the new one.
Sheet copyLayout(const Sheet& layout, Document& document, const Sheet& master, PartCopier& copier);

}  // namespace vellumark::deck
