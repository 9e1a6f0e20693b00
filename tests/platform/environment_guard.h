#pragma once
// An environment variable that has a value, or none, as long as the object lives.

#include <cstdlib>
#include <optional>
#include <string>

namespace vellumark::test {

/// Names the folder for temporary files.
#ifdef _WIN32
constexpr const char* temporaryFolderVariable = "TMP";
#else
constexpr const char* temporaryFolderVariable = "TMPDIR";
#endif

class EnvironmentGuard {
 public:
  EnvironmentGuard(std::string name, const std::optional<std::string>& value) : name_(std::move(name)) {
    if (const char* before = std::getenv(name_.c_str())) before_ = before;
    set(value);
  }
  ~EnvironmentGuard() { set(before_); }
  EnvironmentGuard(const EnvironmentGuard&) = delete;
  EnvironmentGuard& operator=(const EnvironmentGuard&) = delete;

  void set(const std::optional<std::string>& value) const {
#ifdef _WIN32
    _putenv_s(name_.c_str(), value ? value->c_str() : "");
#else
    if (value) {
      setenv(name_.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name_.c_str());
    }
#endif
  }

 private:
  std::string name_;
  std::optional<std::string> before_;
};

}  // namespace vellumark::test
