#include "platform/environment.h"

#include "platform/win32/wide.h"

namespace vellumark::platform {

std::optional<std::string> environmentVariable(const std::string& name) {
  const std::wstring wideName = win32::toWide(name);
  std::wstring value(GetEnvironmentVariableW(wideName.c_str(), nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(wideName.c_str(), value.data(), static_cast<DWORD>(value.size())));
  if (value.empty()) return std::nullopt;
  return win32::fromWide(value);
}

std::string expandEnvironment(std::string_view text) {
  const std::wstring wide = win32::toWide(text);
  std::wstring result(ExpandEnvironmentStringsW(wide.c_str(), nullptr, 0), L'\0');
  const DWORD length =
      ExpandEnvironmentStringsW(wide.c_str(), result.data(), static_cast<DWORD>(result.size()));
  result.resize(length > 0 ? length - 1 : 0);  // the terminator counts
  return win32::fromWide(result);
}

}  // namespace vellumark::platform
