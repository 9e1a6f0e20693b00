#pragma once
// Keeping several programs from changing the same file or folder at once.

#include <chrono>
#include <cstdint>
#include <string>

namespace vellumark::platform {

/// A lock on a file or folder that is there, kept as long as the object lives; the system drops it when the
/// process ends, however it ends. It binds only those who ask for it. Where the file system knows no locks,
/// everybody gets it.
class PathLock {
 public:
  /// Waits that long for whoever has it.
  explicit PathLock(const std::string& path, std::chrono::milliseconds patience = {});
  ~PathLock();
  PathLock(const PathLock&) = delete;
  PathLock& operator=(const PathLock&) = delete;

  /// False where another one kept it all that time.
  bool held() const { return held_; }

 private:
  std::intptr_t handle_ = -1;
  bool held_ = true;
};

}  // namespace vellumark::platform
