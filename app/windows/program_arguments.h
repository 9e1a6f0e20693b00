#pragma once

#include <string>
#include <vector>

namespace vellumark::app {

/// The words of the command line in UTF-8, the program's own name first.
std::vector<std::string> programArguments();

}  // namespace vellumark::app
