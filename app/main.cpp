// The command line program.

#include "command_line.h"

int main(int argc, char** argv) { return vellumark::app::runProgram(argc, argv); }
