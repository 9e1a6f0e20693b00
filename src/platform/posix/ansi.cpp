#include "platform/ansi.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace vellumark::platform {
namespace {

/// Characters of the bytes 80 to 9F; the others are those of Latin-1.
constexpr std::array<char16_t, 32> windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char toByte(char16_t unit) {
  if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return static_cast<char>(unit);
  const auto found = std::find(windows1252.begin(), windows1252.end(), unit);
  return found == windows1252.end() ? '?' : static_cast<char>(0x80 + (found - windows1252.begin()));
}

char16_t fromByte(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0x80 && value < 0xA0 ? windows1252[value - 0x80U] : char16_t{value};
}

}  // namespace

std::string toAnsi(std::string_view text) {
  const std::u16string units = base::toUtf16(text);
  std::string bytes(units.size(), '\0');
  std::transform(units.begin(), units.end(), bytes.begin(), toByte);
  return bytes;
}

std::string fromAnsi(std::string_view bytes) {
  std::u16string units(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), units.begin(), fromByte);
  return base::fromUtf16(units);
}

}  // namespace vellumark::platform
