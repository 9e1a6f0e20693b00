#pragma once
// Characters that can stand in the file, and what they are to the host.

#include <string>
#include <string_view>

namespace vellumark::deck {

inline constexpr char16_t paragraphMark = u'\r';
inline constexpr char16_t lineBreak = u'\v';

/// A text as the host takes it: a line feed, alone or behind a carriage return, ends a paragraph as that
/// does; what no XML file can hold is left out.
std::u16string storableText(std::u16string_view text);

bool isBlank(char16_t character);
bool isPunctuation(char16_t character);

/// The capital of a Latin, Greek or Cyrillic letter; every other character as it is.
char16_t capitalOf(char16_t character);

}  // namespace vellumark::deck
