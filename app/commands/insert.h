#pragma once

#include <string>

#include "commands/run.h"

namespace vellumark::app {

struct InsertOptions : RunOptions {
  std::string element;
};

/// Inserts an element of a gallery into the slide in view. Where nobody chose a style it comes in the one
/// that suits the slides.
Exit insert(const InsertOptions& options, const Surroundings& surroundings);

}  // namespace vellumark::app
