#include "base/text.h"

#include <algorithm>

namespace vellumark::base {
namespace {

constexpr char32_t replacement = 0xFFFD;

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

template <char (*change)(char)>
std::string changed(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), change);
  return result;
}

/// Takes one character off the front of `text`. A malformed sequence gives U+FFFD and takes its longest
/// prefix that could have begun a character, so that nothing well-formed behind it is lost.
char32_t takeCharacter(std::string_view& text) {
  const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const unsigned char lead = byte(0);
  const auto take = [&](std::size_t count, char32_t character) {
    text.remove_prefix(count);
    return character;
  };
  if (lead < 0x80) return take(1, lead);
  if (lead < 0xC2 || lead > 0xF4) return take(1, replacement);

  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t character = lead & (0xFFU >> (length + 1));
  // The second byte's range excludes overlong forms, surrogates and what lies beyond U+10FFFF.
  unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  for (std::size_t i = 1; i < length; ++i) {
    if (i == text.size() || byte(i) < low || byte(i) > high) return take(i, replacement);
    character = character << 6 | (byte(i) & 0x3FU);
    low = 0x80;
    high = 0xBF;
  }
  return take(length, character);
}

void appendUtf8(std::string& text, char32_t character) {
  const auto tail = [&](int shift) { text += static_cast<char>(0x80 | (character >> shift & 0x3F)); };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0 | character >> 6);
    tail(0);
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0 | character >> 12);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0 | character >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

std::string trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string toLower(std::string_view text) { return changed<lower>(text); }
std::string toUpper(std::string_view text) { return changed<upper>(text); }

bool equalsIgnoreCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lower(x) == lower(y); });
}

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  if (text.empty()) return parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

std::string join(const std::vector<std::string>& parts, std::string_view separator) {
  std::string text;
  for (const std::string& part : parts) {
    if (&part != &parts.front()) text += separator;
    text += part;
  }
  return text;
}

std::string replaceAll(std::string_view text, std::string_view what, std::string_view with) {
  if (what.empty()) return std::string(text);
  std::string result;
  for (;;) {
    const std::size_t found = text.find(what);
    result += text.substr(0, found);
    if (found == std::string_view::npos) return result;
    result += with;
    text.remove_prefix(found + what.size());
  }
}

std::u16string toUtf16(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const char32_t character = takeCharacter(text);
    if (character < 0x10000) {
      result += static_cast<char16_t>(character);
    } else {
      result += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
      result += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
    }
  }
  return result;
}

std::string fromUtf16(std::u16string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
      appendUtf8(result, 0x10000 + ((unit - 0xD800U) << 10) + (text[++i] - 0xDC00U));
    } else {
      appendUtf8(result, isHighSurrogate(unit) || isLowSurrogate(unit) ? replacement : char32_t{unit});
    }
  }
  return result;
}

std::size_t length16(std::string_view text) {
  std::size_t length = 0;
  while (!text.empty()) length += takeCharacter(text) < 0x10000 ? 1 : 2;
  return length;
}

std::string mid16(std::string_view text, std::size_t start, std::size_t count) {
  const std::u16string units = toUtf16(text);
  if (start >= units.size()) return {};
  return fromUtf16(std::u16string_view(units).substr(start, count));
}

}  // namespace vellumark::base
