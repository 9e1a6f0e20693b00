// The command line program on a host that takes nothing but what is documented.

#include "command_line.h"
#include "support/strict_add_in.h"

int main(int argc, char** argv) {
  using namespace vellumark;
  return app::runProgram(argc, argv, {test::behindStrictHost(app::builtInAddIn), app::scriptedQuestions});
}
