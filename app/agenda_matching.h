#pragma once
// Which item of an agenda an item of a new list is.

#include <cstddef>
#include <optional>
#include <vector>

#include "agenda_items.h"

namespace vellumark::app {

/// For each of the new items the place of the old one that it is; nothing where it is new. Items of the same
/// text on the same level are the same, wherever they stand, then those of the same text. What is left over
/// between the same neighbours was reworded there, the most alike taken together in their order; elsewhere
/// only what is half the same is.
std::vector<std::optional<std::size_t>> matchItems(const std::vector<AgendaItem>& before,
                                                   const std::vector<AgendaItem>& after);

}  // namespace vellumark::app
