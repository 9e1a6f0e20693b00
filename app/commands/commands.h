#pragma once

#include "failure.h"

namespace vellumark::app {

/// Lists the commands of the add-in.
Exit listCommands(bool json);

}  // namespace vellumark::app
