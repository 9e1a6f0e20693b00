#pragma once
// The program's subcommands and their options.

#include "failure.h"

namespace vellumark::app {

/// Reads the command line and does what it says. A Failure of usage where it makes no sense.
Exit runCommandLine(int argc, const char* const* argv);

}  // namespace vellumark::app
