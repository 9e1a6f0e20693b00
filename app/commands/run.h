#pragma once

#include <string>
#include <vector>

#include "situation.h"
#include "surroundings.h"

namespace vellumark::app {

struct RunOptions : Situation {
  std::string command;
  std::string out;
  bool inPlace = false;
  std::vector<std::string> dialogs;
  std::vector<std::string> answers;
  std::string root;
  bool json = false;
};

/// Runs one command of the add-in on a deck as a user does: opens it in a window, selects, presses the
/// button.
Exit run(const RunOptions& options, const Surroundings& surroundings);

}  // namespace vellumark::app
