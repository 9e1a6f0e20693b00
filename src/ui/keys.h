#pragma once
// Keys by the codes of Windows, and which of them are held down with another one.

#include <optional>
#include <string>

namespace vellumark::ui::keys {

// Letters and digits have the codes of their upper-case characters.
constexpr int backspace = 8, tab = 9, enter = 13, escape = 27, space = 32, pageUp = 33, pageDown = 34,
              end = 35, home = 36, left = 37, up = 38, right = 39, down = 40, insert = 45, del = 46, f1 = 112,
              f12 = 123;

// What is held down, as a sum.
constexpr int shift = 1, control = 2, alt = 4;

/// The code of a key by its name ("Escape", "Page Up", "F1", "A", "7") in any case; nothing where there is
/// none.
std::optional<int> codeOf(const std::string& name);
/// The code of the key that types a character; 0 for all but letters, digits and the blank.
int codeOf(char32_t character);

}  // namespace vellumark::ui::keys
