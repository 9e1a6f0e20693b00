#include "deck/model/text_characters.h"

#include "base/text.h"

namespace vellumark::deck {
namespace {

bool isHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// Whether the unit at `place` can stand in XML: no control character, no half of a pair, no non-character.
bool storable(std::u16string_view text, std::size_t place) {
  const char16_t unit = text[place];
  if (isHighSurrogate(unit)) return place + 1 < text.size() && isLowSurrogate(text[place + 1]);
  if (isLowSurrogate(unit)) return place > 0 && isHighSurrogate(text[place - 1]);
  return (unit >= 0x20 && unit < 0xFFFE) || unit == u'\t';
}

}  // namespace

std::u16string storableText(std::u16string_view text) {
  std::u16string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit == u'\n') {
      if (i == 0 || text[i - 1] != u'\r') result += paragraphMark;
    } else if (unit == paragraphMark || unit == lineBreak || storable(text, i)) {
      result += unit;
    }
  }
  return result;
}

bool isBlank(char16_t character) {
  return character == u' ' || (character >= 0x09 && character <= 0x0D) || character == 0xA0 ||
         (character >= 0x2000 && character <= 0x200B) || character == 0x3000;
}

bool isPunctuation(char16_t character) {
  if (character < 0x80) {
    return character > 0x20 && character < 0x7F && !(character >= u'0' && character <= u'9') &&
           !(character >= u'A' && character <= u'Z') && !(character >= u'a' && character <= u'z');
  }
  // Signs of Latin-1 that are no letters, general punctuation, the marks of East Asian texts and their wide
  // forms.
  return (character >= 0xA1 && character <= 0xBF && character != 0xAA && character != 0xB5 &&
          character != 0xBA) ||
         character == 0xD7 || character == 0xF7 || (character >= 0x2010 && character <= 0x205E) ||
         (character >= 0x3001 && character <= 0x3003) || (character >= 0x3008 && character <= 0x3011) ||
         (character >= 0x3014 && character <= 0x301F) || (character >= 0xFF01 && character <= 0xFF0F) ||
         (character >= 0xFF1A && character <= 0xFF20) || (character >= 0xFF3B && character <= 0xFF40) ||
         (character >= 0xFF5B && character <= 0xFF65);
}

char16_t capitalOf(char16_t character) {
  struct Range {
    char16_t first, last;
    int step;      ///< letters of both cases by turns where it is 2
    int distance;  ///< from a letter to its capital
  };
  constexpr Range ranges[] = {{u'a', u'z', 1, -32},    {u'à', u'ö', 1, -32},     {u'ø', u'þ', 1, -32},
                              {u'ÿ', u'ÿ', 1, 121},    {0x0101, 0x0137, 2, -1},  {0x013A, 0x0148, 2, -1},
                              {0x014B, 0x0177, 2, -1}, {0x017A, 0x017E, 2, -1},  {u'ά', u'ά', 1, -38},
                              {u'έ', u'ί', 1, -37},    {u'α', u'ρ', 1, -32},     {u'ς', u'ς', 1, -31},
                              {u'σ', u'ϋ', 1, -32},    {u'ό', u'ό', 1, -64},     {u'ύ', u'ώ', 1, -63},
                              {u'а', u'я', 1, -32},    {0x0450, 0x045F, 1, -80}, {0x0461, 0x0481, 2, -1},
                              {0x048B, 0x04BF, 2, -1}, {0x1E01, 0x1E95, 2, -1},  {0x1EA1, 0x1EFF, 2, -1}};
  for (const Range& range : ranges) {
    if (character < range.first || character > range.last) continue;
    return (character - range.first) % range.step == 0 ? static_cast<char16_t>(character + range.distance)
                                                       : character;
  }
  return character;
}

}  // namespace vellumark::deck
