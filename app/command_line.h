#pragma once
// The program's subcommands and their options.

#include "surroundings.h"

namespace vellumark::app {

/// Reads the command line and does what it says. A Failure of usage where it makes no sense.
Exit runCommandLine(int argc, const char* const* argv, const Surroundings& surroundings = builtIn());

/// The whole program: as runCommandLine(), with each failure told in one line. The result is the exit status.
int runProgram(int argc, const char* const* argv, const Surroundings& surroundings = builtIn());

}  // namespace vellumark::app
