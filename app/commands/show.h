#pragma once

#include <string>

#include "failure.h"

namespace vellumark::app {

struct ShowOptions {
  std::string deck;
  bool json = false;
};

/// Lists the slides of a deck and the shapes on them.
Exit show(const ShowOptions& options);

}  // namespace vellumark::app
