#pragma once
// Collects what reaches the traps as long as it lives, instead of showing it.

#include <string>
#include <utility>
#include <vector>

#include "base/trap.h"

namespace vellumark::test {

class Failures {
 public:
  Failures()
      : before_(base::setFailureHandler([this](std::string_view location, const base::Error& error) {
          told_.push_back(std::string(location) + ": " + std::to_string(error.number()));
        })) {}
  ~Failures() { base::setFailureHandler(before_); }
  Failures(const Failures&) = delete;
  Failures& operator=(const Failures&) = delete;

  /// Each as "Module, procedure: number", oldest first, and forgets them.
  std::vector<std::string> take() { return std::exchange(told_, {}); }

 private:
  std::vector<std::string> told_;
  base::FailureHandler before_;
};

}  // namespace vellumark::test
