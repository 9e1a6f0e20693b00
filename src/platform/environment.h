#pragma once
// Environment variables.

#include <optional>
#include <string>
#include <string_view>

namespace vellumark::platform {

/// The value of a variable; nothing where it is missing or empty.
std::optional<std::string> environmentVariable(const std::string& name);

/// `text` with each "%NAME%" replaced by the variable's value. What names no variable stays as it is.
std::string expandEnvironment(std::string_view text);

}  // namespace vellumark::platform
