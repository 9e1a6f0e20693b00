#pragma once
// The host's dialogs for files, asked like all other questions.

#include <optional>
#include <string>

#include "deck/model/file_dialogs.h"

namespace vellumark::app {

/// Asks through the toolkit; nothing where the user cancels.
std::optional<std::string> askForFile(const deck::FileQuestion& question);

}  // namespace vellumark::app
