#include "ui/keys.h"

#include <utility>

#include "base/text.h"

namespace vellumark::ui::keys {

std::optional<int> codeOf(const std::string& name) {
  constexpr std::pair<const char*, int> named[] = {
      {"Backspace", backspace}, {"Tab", tab},       {"Enter", enter},
      {"Escape", escape},       {"Space", space},   {"Page Up", pageUp},
      {"Page Down", pageDown},  {"End", end},       {"Home", home},
      {"Left", left},           {"Up", up},         {"Right", right},
      {"Down", down},           {"Insert", insert}, {"Delete", del}};
  for (const auto& [text, code] : named) {
    if (base::equalsIgnoreCase(name, text)) return code;
  }
  for (int code = f1; code <= f12; ++code) {
    if (base::equalsIgnoreCase(name, "F" + std::to_string(code - f1 + 1))) return code;
  }
  if (name.size() != 1) return std::nullopt;
  const int code = codeOf(static_cast<char32_t>(static_cast<unsigned char>(name[0])));
  return code == 0 ? std::nullopt : std::optional(code);
}

int codeOf(char32_t character) {
  if (character >= U'a' && character <= U'z') character += U'A' - U'a';
  const bool known = (character >= U'A' && character <= U'Z') || (character >= U'0' && character <= U'9') ||
                     character == U' ';
  return known ? static_cast<int>(character) : 0;
}

}  // namespace vellumark::ui::keys
