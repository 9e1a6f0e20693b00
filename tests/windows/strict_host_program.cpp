// The host program with a host that takes nothing but what is documented.

#include "support/strict_add_in.h"
#include "windows/com_add_in.h"
#include "windows/host_program.h"

int main() {
  using namespace vellumark;
  return app::runHostProgram(test::behindStrictHost(app::comAddIn));
}
