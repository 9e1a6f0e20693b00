#pragma once

#include <string>

#include "surroundings.h"

namespace vellumark::app {

struct DemoOptions {
  std::string deck;
  std::string out;
  std::string root;
};

/// Straightens the shapes of one slide with a handful of commands, saves the result as a new file and shows
/// the shapes' boxes before and after.
Exit demo(const DemoOptions& options, const Surroundings& surroundings);

}  // namespace vellumark::app
