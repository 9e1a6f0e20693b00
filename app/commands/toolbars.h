#pragma once

#include <string>

#include "situation.h"
#include "surroundings.h"

namespace vellumark::app {

struct ToolbarsOptions : Situation {
  ToolbarsOptions() { host = "11.0"; }
  std::string root;
  bool json = false;
};

/// Tells the add-in's bars on a host before the ribbon as a tree, with the states that their entries have in
/// a situation. Without a deck no window is open.
Exit toolbars(const ToolbarsOptions& options, const Surroundings& surroundings);

}  // namespace vellumark::app
