#pragma once

#include <string_view>

#include "deck/model/document.h"

namespace vellumark::deck {

/// Adds a layout of a type that a master lacks: blank, or with a title and a body, which follow the master's
/// where it has them. Nothing for other types.
Sheet addLayout(Document& document, const Sheet& master, std::string_view type);

}  // namespace vellumark::deck
