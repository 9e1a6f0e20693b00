#pragma once

#include <string>

#include "situation.h"
#include "surroundings.h"

namespace vellumark::app {

struct RibbonOptions : Situation {
  std::string root;
  bool json = false;
};

/// Tells the add-in's tab on the ribbon as a tree, with the states that it has in a situation. Without a deck
/// no window is open.
Exit ribbon(const RibbonOptions& options, const Surroundings& surroundings);

}  // namespace vellumark::app
