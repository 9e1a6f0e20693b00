// A host for the Windows add-in without PowerPoint: loads the registered add-in as PowerPoint does, connects
// it to the embedded host served over COM, and otherwise takes what the command line program takes.

#include "windows/com_add_in.h"
#include "windows/host_program.h"

int main() { return vellumark::app::runHostProgram(vellumark::app::comAddIn); }
