#pragma once

#include <optional>

#include "platform/path_lock.h"

namespace vellumark::library {

/// Keeps other programs from changing the user's elements as long as it lives, and takes over what they
/// changed before. Where one of them keeps the elements too long, the user is told, and the lock is not held.
class MyElementsLock {
 public:
  MyElementsLock();
  bool held() const { return lock_ && lock_->held(); }

 private:
  std::optional<platform::PathLock> lock_;
};

}  // namespace vellumark::library
