#pragma once
// The program that hosts the add-in without PowerPoint.

#include "add_in.h"

namespace vellumark::app {

/// Runs what the program's own command line says, as the command line program does, with the add-in that
/// `make` gives; its dialogs are worked through their windows. The result is the exit status.
int runHostProgram(const AddInMaker& make);

}  // namespace vellumark::app
