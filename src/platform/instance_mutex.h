#pragma once
// The named mark by which other programs see that the add-in is loaded.

#include <cstdint>
#include <string>
#include <string_view>

namespace vellumark::platform {

/// Sets the mark for as long as the object lives. Any number of instances, in one process or several, carry
/// the same mark without any consequence, and nothing here ever fails: where the system gives no mark, there
/// is none.
///
/// On Linux the mark is a shared lock on the file NAME.lock in $XDG_RUNTIME_DIR, which the system drops when
/// the process ends, however it ends.
class InstanceMutex {
 public:
  explicit InstanceMutex(std::string_view name);
  ~InstanceMutex();
  InstanceMutex(const InstanceMutex&) = delete;
  InstanceMutex& operator=(const InstanceMutex&) = delete;

  /// Whether anybody carries the mark `name` at this moment, as an outside program asks.
  static bool isSet(std::string_view name);

 private:
  std::intptr_t handle_ = -1;
};

}  // namespace vellumark::platform
