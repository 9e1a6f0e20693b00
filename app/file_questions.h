#pragma once
// The host's dialogs for files, asked like all other questions.

#include "deck/model/file_dialogs.h"
#include "ui/message_box.h"

namespace vellumark::app {

/// A question of the host as a dialog of the toolkit's.
ui::FileDialog fileDialogFor(const deck::FileQuestion& question);

}  // namespace vellumark::app
