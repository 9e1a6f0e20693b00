#pragma once
// Shared libraries that are loaded only when they are needed.

#include <string>
#include <utility>

namespace vellumark::platform {

/// A loaded library. It stays loaded for the rest of the process, because what it leaves behind (type
/// information, exit handlers, threads) may outlive the object.
class Library {
 public:
  /// Loads the library `name` ("vellumark_qt" for libvellumark_qt.so) from the folder of the executable.
  /// Raises 53 with the system's reason.
  static Library besideExecutable(const std::string& name);

  /// The function `symbol` as a pointer of type Function; 53 where the library has none of that name.
  template <typename Function>
  Function* function(const std::string& symbol) const {
    return reinterpret_cast<Function*>(address(symbol));
  }

 private:
  Library(void* handle, std::string path) : handle_(handle), path_(std::move(path)) {}
  void* address(const std::string& symbol) const;

  void* handle_;
  std::string path_;
};

}  // namespace vellumark::platform
