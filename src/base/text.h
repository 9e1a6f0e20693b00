#pragma once
// Small text functions. All texts are UTF-8; lengths and positions of "characters" are stated where they
// matter.

#include <string>
#include <string_view>
#include <vector>

namespace vellumark::base {

/// Without blanks (only blanks, not tabs) at both ends.
std::string trim(std::string_view text);
/// ASCII letters in lower or upper case, everything else as it is.
std::string toLower(std::string_view text);
std::string toUpper(std::string_view text);
/// Equal but for the case of ASCII letters.
bool equalsIgnoreCase(std::string_view a, std::string_view b);
/// The parts between separators; an empty text gives no part, as in the classic Split.
std::vector<std::string> split(std::string_view text, char separator);
std::string join(const std::vector<std::string>& parts, std::string_view separator);
std::string replaceAll(std::string_view text, std::string_view what, std::string_view with);

/// UTF-8 to UTF-16 code units and back; what is malformed becomes U+FFFD.
std::u16string toUtf16(std::string_view text);
std::string fromUtf16(std::u16string_view text);
/// Length in UTF-16 code units, the unit in which the host counts characters.
std::size_t length16(std::string_view text);
/// `count` UTF-16 code units from position `start` (zero-based), clipped to the text.
std::string mid16(std::string_view text, std::size_t start, std::size_t count);

}  // namespace vellumark::base
