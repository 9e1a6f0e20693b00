#pragma once
// One function for each conversion that the system uses, exact in rounding, range and failure.
//
// Failures are base::Error: 6 where the result is out of range, 13 where a text is no number of that kind. Texts are
// read as the user's locale writes numbers where a conversion says so, with surrounding blanks allowed.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vellumark::base {

/// A whole number by rounding halves to even; 6 outside the range.
std::int16_t toInt16(double value);
std::int32_t toInt32(double value);

/// A text as number (locale's decimal separator, optional sign, thousands separators, exponent, "&H" and "&O"
/// forms), then rounded as above; 13 where it is no number, 6 outside the range.
std::int16_t toInt16(std::string_view text);
std::int32_t toInt32(std::string_view text);

/// A text as double; 13 where it is no number, 6 where it is too large for one.
double toDouble(std::string_view text);

/// A text as boolean: "True" and "False" in any case, otherwise a number, of which any but 0 is true; 13 otherwise.
bool toBool(std::string_view text);

/// The number at the start of a text, read with a point as separator whatever the locale: blanks, tabs and line
/// feeds are skipped, reading stops at the first character that can't belong, 0 where there is none. "&H" and "&O"
/// prefixes are understood.
double val(std::string_view text);

/// Truncation toward zero.
double fix(double value);

/// The narrowing of a double to a single; 6 where it doesn't fit.
float toSingle(double value);

/// The shortest text of a single with at most seven digits ("0.1", "1.5E-05"), without a blank in front, with the
/// locale's decimal separator.
std::string singleText(float value);

/// The same for a double, with at most fifteen digits.
std::string doubleText(double value);

/// A whole number with at least two digits: 7 gives "07", 123 gives "123", -5 gives "-05".
std::string format00(std::int32_t value);

/// A number with exactly `decimals` decimals, halves away from zero, with the locale's decimal separator: the
/// formats "0", "0.0", "0.00".
std::string formatFixed(double value, int decimals);

/// Whether toDouble() would succeed (an empty text is no number).
bool isNumeric(std::string_view text);

/// Whether a text is a date or time: "2026-01-31", "31.01.2026", "1/31/2026", "9:30", "09:30:15", "9:30 PM", or a
/// date followed by a time. The day must exist.
bool isDate(std::string_view text);

/// The serial number of such a text: days since 1899-12-30, the time of the day as fraction; 13 where it is no date.
double toDate(std::string_view text);

/// A serial date as "yyyy-mm-dd".
std::string isoDate(double serial);

/// The decimal separator of the user's locale: "." unless the locale says otherwise. One character.
char decimalSeparator();
/// Fixes the separator (for tests and for hosts that bring their own); empty returns to the user's locale.
void setDecimalSeparator(std::optional<char> separator);

/// Sum, difference and product of 16-bit integers; 6 where they overflow.
std::int16_t add16(std::int16_t a, std::int16_t b);
std::int16_t subtract16(std::int16_t a, std::int16_t b);
std::int16_t multiply16(std::int16_t a, std::int16_t b);
/// Sum of 32-bit integers; 6 where it overflows.
std::int32_t add32(std::int32_t a, std::int32_t b);
/// Floating division; 11 for a zero divisor (6 for zero by zero).
double divide(double a, double b);

}  // namespace vellumark::base
