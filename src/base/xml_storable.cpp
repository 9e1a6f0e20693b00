#include "base/xml_storable.h"

#include <algorithm>

#include "base/text.h"

namespace vellumark::base {
namespace {

bool isStorable(char16_t unit) {
  return (unit >= 0x20 && unit < 0xFFFE) || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

}  // namespace

bool isXmlStorable(std::string_view text) {
  const bool plain = std::ranges::all_of(
      text, [](char c) { return static_cast<signed char>(c) >= 0 && isStorable(static_cast<char16_t>(c)); });
  return plain || xmlStorable(text) == text;
}

std::string xmlStorable(std::string_view text) {
  std::u16string units = toUtf16(text);
  std::erase_if(units, [](char16_t unit) { return !isStorable(unit); });
  return fromUtf16(units);
}

}  // namespace vellumark::base
