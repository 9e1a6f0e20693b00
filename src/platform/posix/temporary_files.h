#pragma once
// Files that go when a signal ends the program.

#include <string>

namespace vellumark::platform::posix {

/// From here on SIGINT, SIGTERM and SIGHUP remove a file before they end the program; what the program has
/// asked to ignore stays ignored. Of many files at once only the first ones are known.
void removeAtSignals(const std::string& path);
/// Takes that back.
void keepAtSignals(const std::string& path);

}  // namespace vellumark::platform::posix
