// The command line program.

#include <exception>
#include <new>

#include "base/error.h"
#include "command_line.h"
#include "console.h"
#include "failure.h"

int main(int argc, char** argv) {
  using namespace vellumark;
  try {
    return static_cast<int>(app::runCommandLine(argc, argv));
  } catch (const app::Failure& failure) {
    app::tellFailure(failure.what());
    return static_cast<int>(failure.exit());
  } catch (const base::Error& error) {
    app::tellFailure(error.description() + " (" + std::to_string(error.number()) + ")");
  } catch (const std::bad_alloc&) {
    app::tellFailure("out of memory: the deck is too large for this machine");
  } catch (const std::exception& failure) {
    app::tellFailure(failure.what());
  }
  return static_cast<int>(app::Exit::refused);
}
