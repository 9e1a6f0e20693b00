#pragma once
// The one failure route of the add-in.

#include <string_view>

#include "base/error.h"
#include "base/trap.h"

namespace vellumark::core {

using base::resumeNext;
using base::trap;

/// Shows the failure in ErrForm, from which the user may send a report. `message` is a location string
/// (module, comma, blank, procedure) or any text that holds a comma and a blank; `error` is the failure or
/// nothing. A failure that comes while the dialog is open only overwrites what it shows. A message without a
/// comma raises 5.
void handleError(std::string_view message, const base::Error* error);

/// Makes handleError the route of every trap.
void installFailureRoute();

}  // namespace vellumark::core
