#pragma once
// The system's ANSI code page: Windows-1252 on Linux.

#include <string>
#include <string_view>

namespace vellumark::platform {

/// UTF-8 to bytes of the code page. A UTF-16 code unit that has no place there becomes "?", so a character
/// beyond U+FFFF gives two.
std::string toAnsi(std::string_view text);

/// Bytes of the code page to UTF-8. The five bytes without a meaning (81, 8D, 8F, 90, 9D) stand for the
/// control characters of the same number, in both directions.
std::string fromAnsi(std::string_view bytes);

/// Bytes of a text file whose encoding nobody tells: UTF-8, with or without its mark, where they are that,
/// otherwise bytes of the code page.
std::string fromAnsiOrUtf8(std::string_view bytes);

}  // namespace vellumark::platform
