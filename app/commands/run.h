#pragma once

#include <functional>
#include <string>
#include <vector>

#include "situation.h"
#include "surroundings.h"

namespace vellumark::app {

class Session;

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

/// The same with something else than a command that a user does with the add-in, called `name` in messages.
Exit runOnDeck(const RunOptions& options, const std::string& name, const Surroundings& surroundings,
               const std::function<void(Session& session)>& act);

}  // namespace vellumark::app
