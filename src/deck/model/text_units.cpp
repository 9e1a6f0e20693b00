#include "deck/model/text_units.h"

#include <algorithm>
#include <sstream>
#include <string>

#include "deck/model/text_characters.h"

namespace vellumark::deck {
namespace {

std::vector<TextSpan> paragraphUnits(const TextBody& body) {
  std::vector<TextSpan> units;
  for (const TextParagraph& paragraph : body.paragraphs()) {
    TextSpan span = paragraph.span;
    if (span.end() < body.text().size()) ++span.length;
    units.push_back(span);
  }
  return units;
}

bool isDigit(char16_t character) { return character >= u'0' && character <= u'9'; }

/// Whether a mark is part of the word around it: "don't", "3.14".
bool joins(const std::u16string& text, std::size_t place) {
  if (place == 0 || place + 1 >= text.size()) return false;
  const char16_t before = text[place - 1];
  const char16_t behind = text[place + 1];
  if (text[place] == u'.' || text[place] == u',') return isDigit(before) && isDigit(behind);
  const bool apostrophe = text[place] == u'\'' || text[place] == u'\u2019';
  const auto letter = [](char16_t character) { return !isBlank(character) && !isPunctuation(character); };
  return apostrophe && letter(before) && letter(behind);
}

std::vector<TextSpan> wordUnits(const std::u16string& text) {
  std::vector<TextSpan> units;
  std::size_t place = 0;
  while (place < text.size()) {
    const std::size_t start = place;
    if (isPunctuation(text[place])) {
      ++place;
    } else {
      while (place < text.size() && !isBlank(text[place]) &&
             (!isPunctuation(text[place]) || joins(text, place))) {
        ++place;
      }
    }
    while (place < text.size() && isBlank(text[place])) ++place;
    units.push_back({start, place - start});
  }
  return units;
}

std::vector<TextSpan> runUnits(const TextBody& body) {
  std::vector<TextSpan> units;
  for (const TextParagraph& paragraph : body.paragraphs()) {
    const bool marked = paragraph.span.end() < body.text().size();
    std::string format;
    bool first = true;
    for (const TextPiece& piece : paragraph.pieces) {
      if (piece.span.length == 0) continue;
      std::ostringstream own;
      piece.node.child("a:rPr").print(own, "", pugi::format_raw);
      if (first || own.str() != format) {
        units.push_back(piece.span);
      } else {
        units.back().length += piece.span.length;
      }
      first = false;
      format = own.str();
    }
    if (first) units.push_back({paragraph.span.start, 0});
    if (marked) ++units.back().length;
  }
  return units;
}

std::vector<TextSpan> divided(const TextBody& body, TextUnit unit, TextSpan within) {
  std::vector<TextSpan> units;
  switch (unit) {
    case TextUnit::whole:
      return {within};
    case TextUnit::characters:
      for (std::size_t i = within.start; i < within.end(); ++i) units.push_back({i, 1});
      return units;
    case TextUnit::paragraphs:
      units = paragraphUnits(body);
      break;
    case TextUnit::words:
      units = wordUnits(body.text());
      break;
    case TextUnit::runs:
      units = runUnits(body);
      break;
  }
  for (TextSpan& span : units) {
    const std::size_t start = std::max(span.start, within.start);
    const std::size_t end = std::min(span.end(), within.end());
    span = {start, end > start ? end - start : 0};
  }
  std::erase_if(units, [](const TextSpan& span) { return span.length == 0; });
  return units;
}

}  // namespace

const std::vector<TextSpan>& textUnits(const TextBody& body, TextUnit unit, TextSpan within) {
  return body.units(unit, within, [&] { return divided(body, unit, within); });
}

}  // namespace vellumark::deck
