#pragma once
// How the program ends, and the failures that end it.

#include <stdexcept>
#include <string>

namespace vellumark::app {

/// Exit statuses of the program.
enum class Exit {
  done = 0,
  refused = 1,  ///< the command refused, failed or isn't there to be run
  usage = 2,    ///< the command line makes no sense
  deck = 3      ///< the deck can't be read or written
};

/// Ends the program with one line on standard error: what, where, and what to do.
class Failure : public std::runtime_error {
 public:
  Failure(Exit exit, const std::string& line) : std::runtime_error(line), exit_(exit) {}
  Exit exit() const noexcept { return exit_; }

 private:
  Exit exit_;
};

}  // namespace vellumark::app
