#pragma once

#include <string>
#include <vector>

#include "surroundings.h"

namespace vellumark::app {

struct RunOptions {
  std::string command;
  std::string deck;
  std::string out;
  bool inPlace = false;
  int slide = 1;
  std::string select;  ///< shapes in the order of selecting
  std::string slides;
  std::string text;
  std::string cells;
  std::string view;
  std::string host = "14.0";
  std::vector<std::string> dialogs;
  std::vector<std::string> answers;
  std::string root;
  bool json = false;
};

/// Runs one command of the add-in on a deck as a user does: opens it in a window, selects, presses the
/// button.
Exit run(const RunOptions& options, const Surroundings& surroundings);

}  // namespace vellumark::app
