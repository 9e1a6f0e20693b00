#include "platform/environment.h"

#include <cstdlib>

namespace vellumark::platform {

std::optional<std::string> environmentVariable(const std::string& name) {
  const char* value = std::getenv(name.c_str());
  if (value == nullptr || *value == '\0') return std::nullopt;
  return value;
}

std::string expandEnvironment(std::string_view text) {
  std::string result;
  for (;;) {
    const std::size_t begin = text.find('%');
    result += text.substr(0, begin);
    if (begin == std::string_view::npos) return result;
    text.remove_prefix(begin);
    const std::size_t end = text.find('%', 1);
    const char* value = nullptr;
    if (end != std::string_view::npos) value = std::getenv(std::string(text.substr(1, end - 1)).c_str());
    if (value != nullptr) {
      result += value;
      text.remove_prefix(end + 1);
    } else {  // the second "%" may begin a variable of its own
      result += '%';
      text.remove_prefix(1);
    }
  }
}

}  // namespace vellumark::platform
