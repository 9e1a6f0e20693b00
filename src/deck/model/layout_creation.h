#pragma once

#include <string_view>

#include "deck/model/document.h"

namespace vellumark::deck {

/// Adds a layout of a type that a master lacks: blank, or with placeholders that take everything from the
/// master's title and body. Nothing for other types.
Sheet addLayout(Document& document, const Sheet& master, std::string_view type);

}  // namespace vellumark::deck
