#include "base/conversions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <system_error>

#include "base/error.h"
#include "base/text.h"

namespace vellumark::base {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool isExponentMark(char c) { return c == 'e' || c == 'E' || c == 'd' || c == 'D'; }

std::optional<char>& fixedSeparator() {
  static std::optional<char> separator;
  return separator;
}

char localeSeparator() {
  try {
    return std::use_facet<std::numpunct<char>>(std::locale("")).decimal_point() == ',' ? ',' : '.';
  } catch (const std::runtime_error&) {  // the environment names a locale that is not installed
    return '.';
  }
}

/// The value of a hexadecimal or octal digit, 99 for any other character.
unsigned digitValue(char c) {
  if (isDigit(c)) return static_cast<unsigned>(c - '0');
  const char letter = toUpper(std::string_view(&c, 1))[0];
  return letter >= 'A' && letter <= 'F' ? static_cast<unsigned>(letter - 'A') + 10 : 99;
}

/// The bits behind "&H" or "&O", taken off the front of `text`; nothing where there is no such prefix. Raises
/// 6 beyond 64 bits.
std::optional<std::uint64_t> takeBits(std::string_view& text, std::size_t& digits) {
  if (text.size() < 2 || text[0] != '&') return std::nullopt;
  const bool hexadecimal = text[1] == 'H' || text[1] == 'h';
  if (!hexadecimal && text[1] != 'O' && text[1] != 'o') return std::nullopt;
  const unsigned shift = hexadecimal ? 4 : 3;
  text.remove_prefix(2);
  std::uint64_t bits = 0;
  for (digits = 0; !text.empty() && digitValue(text[0]) < 1U << shift; ++digits) {
    if (bits >> (64 - shift) != 0) raise(errors::overflow);
    bits = bits << shift | digitValue(text[0]);
    text.remove_prefix(1);
  }
  return bits;
}

/// A decimal number collected character by character, independent of any locale.
class Decimal {
 public:
  void digit(char c) {
    text_ += c;
    ++digits_;
    if (c != '0') significant_ = true;
    if (significant_ && !fraction_) ++magnitude_;
    if (!significant_ && fraction_) --magnitude_;
  }
  void point() {
    text_ += '.';
    fraction_ = true;
  }
  /// `exponent` is an optional sign and digits.
  void exponent(std::string_view exponent) {
    text_ += 'e';
    if (exponent[0] == '+') exponent.remove_prefix(1);
    text_ += exponent;
    std::int64_t value = 0;
    if (std::from_chars(exponent.data(), exponent.data() + exponent.size(), value).ec != std::errc{}) {
      value = exponent[0] == '-' ? -1'000'000'000 : 1'000'000'000;
    }
    magnitude_ += value;
  }
  bool empty() const { return digits_ == 0; }
  bool fraction() const { return fraction_; }

  /// 6 where it is too large; what is too small is 0.
  double value() const {
    double value = 0;
    const auto result = std::from_chars(text_.data(), text_.data() + text_.size(), value);
    if (result.ec != std::errc::result_out_of_range) return value;
    if (significant_ && magnitude_ > 0) raise(errors::overflow);
    return 0;
  }

 private:
  std::string text_;
  std::size_t digits_ = 0;
  std::int64_t magnitude_ = 0;  ///< decimal position of the first digit that counts
  bool fraction_ = false;
  bool significant_ = false;
};

/// Length of an exponent ("e5", "D-12") at the front of `text`, 0 where its digits are missing.
std::size_t exponentLength(std::string_view text) {
  std::size_t end = 0;
  if (text.empty() || !isExponentMark(text[end++])) return 0;
  if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
  if (end == text.size() || !isDigit(text[end])) return 0;
  while (end < text.size() && isDigit(text[end])) ++end;
  return end;
}

struct Number {
  std::optional<std::uint64_t> bits;  ///< set for the "&H" and "&O" forms
  double value = 0;
};

/// Blanks, one sign and one opening parenthesis in any order; true where the text so far says "negative".
class Surroundings {
 public:
  void takeLeading(std::string_view& text) {
    for (; !text.empty(); text.remove_prefix(1)) {
      if (isBlank(text[0])) continue;
      if ((text[0] == '+' || text[0] == '-') && !sign_) {
        sign(text[0]);
      } else if (text[0] == '(' && !open_) {
        open_ = true;
      } else {
        return;
      }
    }
  }
  /// Takes blanks, a sign where none was in front, and the closing parenthesis.
  void takeTrailing(std::string_view& text) {
    for (; !text.empty(); text.remove_prefix(1)) {
      if (isBlank(text[0])) continue;
      if ((text[0] == '+' || text[0] == '-') && !sign_ && !open_) {
        sign(text[0]);
      } else if (text[0] == ')' && open_ && !closed_) {
        closed_ = true;
      } else {
        return;
      }
    }
  }
  bool balanced() const { return open_ == closed_ && !(open_ && sign_); }
  bool plain() const { return !open_ && !sign_; }
  bool negative() const { return negative_ || open_; }

 private:
  void sign(char c) {
    sign_ = true;
    negative_ = c == '-';
  }
  bool sign_ = false;
  bool negative_ = false;
  bool open_ = false;
  bool closed_ = false;
};

/// A whole text as number, nothing where it is none; raises 6 where it is too large for a double.
std::optional<Number> parseNumber(std::string_view text) {
  Number number;
  Surroundings around;
  around.takeLeading(text);
  std::size_t digits = 0;
  number.bits = takeBits(text, digits);
  if (number.bits) {
    if (!text.empty() && text[0] == '&') text.remove_prefix(1);  // the mark of a 32-bit number
    while (!text.empty() && isBlank(text[0])) text.remove_prefix(1);
    if (digits == 0 || !around.plain() || !text.empty()) return std::nullopt;
    number.value = static_cast<double>(*number.bits);
    return number;
  }

  const char separator = decimalSeparator();
  const char thousands = separator == ',' ? '.' : ',';
  Decimal decimal;
  for (; !text.empty(); text.remove_prefix(1)) {
    if (isDigit(text[0])) {
      decimal.digit(text[0]);
    } else if (text[0] == separator && !decimal.fraction()) {
      decimal.point();
    } else if (text[0] != thousands || decimal.empty() || decimal.fraction()) {
      break;
    }
  }
  if (decimal.empty()) return std::nullopt;
  if (const std::size_t length = exponentLength(text)) {
    decimal.exponent(text.substr(1, length - 1));
    text.remove_prefix(length);
  }
  around.takeTrailing(text);
  if (!text.empty() || !around.balanced()) return std::nullopt;
  number.value = around.negative() ? -decimal.value() : decimal.value();
  return number;
}

Number numberOf(std::string_view text) {
  const std::optional<Number> number = parseNumber(text);
  if (!number) raise(errors::typeMismatch);
  return *number;
}

/// Rounding halves to even, whatever rounding mode the process runs in.
template <typename Integer>
Integer rounded(double value) {
  double whole = std::floor(value);
  const double rest = value - whole;
  if (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2) != 0)) ++whole;
  constexpr double lowest = std::numeric_limits<Integer>::min();
  constexpr double highest = std::numeric_limits<Integer>::max();
  if (!(whole >= lowest && whole <= highest)) raise(errors::overflow);
  return static_cast<Integer>(whole);
}

/// "&H" and "&O" forms are the bits of the type: "&HFFFF" is -1 as 16-bit and 65535 as 32-bit integer.
template <typename Integer, typename Bits>
Integer integerOf(std::string_view text) {
  const Number number = numberOf(text);
  if (!number.bits) return rounded<Integer>(number.value);
  if (*number.bits > std::numeric_limits<Bits>::max()) raise(errors::overflow);
  return static_cast<Integer>(static_cast<Bits>(*number.bits));
}

/// The digits of a number's absolute value, rounded to `count`: 0.0125 is "125" with exponent -2.
struct Digits {
  std::string text;
  int exponent = 0;
};

template <typename Real>
Digits digitsOf(Real value, int count) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                 std::chars_format::scientific, count - 1);
  const std::string_view scientific(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
  const std::size_t mark = scientific.find('e');
  Digits digits;
  for (const char c : scientific.substr(0, mark)) {
    if (c != '.') digits.text += c;
  }
  const std::string_view exponent = scientific.substr(mark + (scientific[mark + 1] == '+' ? 2 : 1));
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), digits.exponent);
  return digits;
}

/// Digits with the decimal separator before the digit at `point`, which may lie outside of them.
std::string pointed(std::string digits, int point) {
  if (point <= 0) {
    digits.insert(0, static_cast<std::size_t>(1 - point), '0');
    point = 1;
  }
  const auto whole = static_cast<std::size_t>(point);
  if (digits.size() < whole) digits.append(whole - digits.size(), '0');
  if (digits.size() > whole) digits.insert(whole, 1, decimalSeparator());
  return digits;
}

/// Plain notation from 0.0001 up to 10 to the power of `count`, as long as it needs no more than `count`
/// decimals; otherwise one digit before the separator and an exponent of at least two digits.
template <typename Real>
std::string shortestText(Real value, int count) {
  if (std::isnan(value)) return "1.#QNAN";
  if (std::isinf(value)) return value < 0 ? "-1.#INF" : "1.#INF";
  if (value == 0) return "0";
  Digits digits = digitsOf(value, count);
  digits.text.erase(digits.text.find_last_not_of('0') + 1);
  const std::string sign = value < 0 ? "-" : "";
  const int decimals = static_cast<int>(digits.text.size()) - 1 - digits.exponent;
  if (digits.exponent >= -4 && digits.exponent < count && decimals <= count) {
    return sign + pointed(digits.text, digits.exponent + 1);
  }
  const std::string exponent = format00(std::abs(digits.exponent));
  return sign + pointed(digits.text, 1) + (digits.exponent < 0 ? "E-" : "E+") + exponent;
}

template <typename Integer>
Integer checked(std::int64_t value) {
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max()) {
    raise(errors::overflow);
  }
  return static_cast<Integer>(value);
}

}  // namespace

std::int16_t toInt16(double value) { return rounded<std::int16_t>(value); }
std::int32_t toInt32(double value) { return rounded<std::int32_t>(value); }
std::int16_t toInt16(std::string_view text) { return integerOf<std::int16_t, std::uint16_t>(text); }
std::int32_t toInt32(std::string_view text) { return integerOf<std::int32_t, std::uint32_t>(text); }

double toDouble(std::string_view text) { return numberOf(text).value; }

bool toBool(std::string_view text) {
  if (equalsIgnoreCase(text, "True")) return true;
  if (equalsIgnoreCase(text, "False")) return false;
  return toDouble(text) != 0;
}

double val(std::string_view text) {
  std::string packed;
  std::copy_if(text.begin(), text.end(), std::back_inserter(packed),
               [](char c) { return c != ' ' && c != '\t' && c != '\n'; });
  std::string_view rest = packed;

  std::size_t digits = 0;
  if (const auto bits = takeBits(rest, digits)) {
    // Up to 16 bits they are a 16-bit number unless "&" marks a 32-bit one.
    const bool marked = !rest.empty() && rest[0] == '&';
    if (*bits <= 0xFFFF && !marked) return static_cast<std::int16_t>(static_cast<std::uint16_t>(*bits));
    if (*bits > 0xFFFFFFFF) raise(errors::overflow);
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(*bits));
  }

  const bool negative = !rest.empty() && rest[0] == '-';
  if (negative || (!rest.empty() && rest[0] == '+')) rest.remove_prefix(1);
  Decimal decimal;
  for (; !rest.empty(); rest.remove_prefix(1)) {
    if (isDigit(rest[0])) {
      decimal.digit(rest[0]);
    } else if (rest[0] == '.' && !decimal.fraction()) {
      decimal.point();
    } else {
      break;
    }
  }
  if (decimal.empty()) return 0;
  if (const std::size_t length = exponentLength(rest)) decimal.exponent(rest.substr(1, length - 1));
  const double value = decimal.value();
  return negative && value != 0 ? -value : value;
}

double fix(double value) { return std::trunc(value); }

float toSingle(double value) {
  const auto single = static_cast<float>(value);
  if (!std::isfinite(single)) raise(errors::overflow);
  return single;
}

std::string singleText(float value) { return shortestText(value, 7); }
std::string doubleText(double value) { return shortestText(value, 15); }

std::string plainText(double value) {
  std::array<char, 400> buffer{};
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
  return {buffer.data(), end.ptr};
}

std::string format00(std::int32_t value) {
  std::string digits = std::to_string(std::abs(std::int64_t{value}));
  if (digits.size() < 2) digits.insert(0, 1, '0');
  return value < 0 ? "-" + digits : digits;
}

std::string formatFixed(double value, int decimals) {
  if (!std::isfinite(value)) return shortestText(value, 15);
  // Rounded as the fifteen digits that one sees, so that 2.675 gives 2.68 although its double lies below.
  Digits digits = digitsOf(value, 15);
  const int keep = digits.exponent + 1 + decimals;
  if (keep < 0) {
    digits = {"0", -decimals};
  } else if (keep < static_cast<int>(digits.text.size())) {
    const auto cut = static_cast<std::size_t>(keep);
    const bool up = digits.text[cut] >= '5';
    digits.text = "0" + digits.text.substr(0, cut);
    ++digits.exponent;
    if (up) {
      std::size_t last = digits.text.size() - 1;
      for (; digits.text[last] == '9'; --last) digits.text[last] = '0';
      ++digits.text[last];
    }
    if (digits.text[0] == '0' && digits.exponent > 0) {
      digits.text.erase(0, 1);
      --digits.exponent;
    }
  } else {
    digits.text.append(static_cast<std::size_t>(keep) - digits.text.size(), '0');
  }
  const bool zero = digits.text.find_first_not_of('0') == std::string::npos;
  return (value < 0 && !zero ? "-" : "") + pointed(digits.text, digits.exponent + 1);
}

bool isNumeric(std::string_view text) {
  try {
    return parseNumber(text).has_value();
  } catch (const Error&) {
    return false;
  }
}

bool isTypedNumber(std::string_view text) {
  const char thousands = decimalSeparator() == ',' ? '.' : ',';
  const auto digitsFrom = [&](std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && isDigit(text[end])) ++end;
    return end - at;
  };
  const std::size_t first = text.find(thousands);
  for (std::size_t at = first; at != text.npos; at = text.find(thousands, at + 1)) {
    if (digitsFrom(at + 1) != 3) return false;
  }
  constexpr std::size_t mostInFront = 3;
  const bool grouped = first == text.npos || digitsFrom(text.find_first_of("0123456789")) <= mostInFront;
  return grouped && isNumeric(text);
}

char decimalSeparator() {
  static const char separator = localeSeparator();
  return fixedSeparator().value_or(separator);
}

void setDecimalSeparator(std::optional<char> separator) { fixedSeparator() = separator; }

std::int16_t add16(std::int16_t a, std::int16_t b) { return checked<std::int16_t>(std::int64_t{a} + b); }
std::int16_t subtract16(std::int16_t a, std::int16_t b) { return checked<std::int16_t>(std::int64_t{a} - b); }
std::int16_t multiply16(std::int16_t a, std::int16_t b) { return checked<std::int16_t>(std::int64_t{a} * b); }
std::int32_t add32(std::int32_t a, std::int32_t b) { return checked<std::int32_t>(std::int64_t{a} + b); }

double divide(double a, double b) {
  if (b == 0) raise(a == 0 ? errors::overflow : errors::divisionByZero);
  const double quotient = a / b;
  if (std::isinf(quotient)) raise(errors::overflow);
  return quotient;
}

}  // namespace vellumark::base
