#pragma once
// One function for each conversion that the system uses, exact in rounding, range and failure.
//
// Failures are base::Error: 6 where the result is out of range, 13 where a text is no number of that kind.
// Texts are read as the user's locale writes numbers where a conversion says so, with surrounding blanks
// allowed.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vellumark::base {

/// A whole number by rounding halves to even; 6 outside the range.
std::int16_t toInt16(double value);
std::int32_t toInt32(double value);

/// A text as number (the locale's decimal separator, thousands separators anywhere between the digits before
/// it, a sign in front or behind or parentheses for negative ones, an exponent after "E" or "D"), then
/// rounded as above; 13 where it is no number, 6 outside the range. "&H" and "&O" forms are the bits of the
/// type: "&HFFFF" is -1 as 16-bit and 65535 as 32-bit number.
std::int16_t toInt16(std::string_view text);
std::int32_t toInt32(std::string_view text);

/// A text as double; 13 where it is no number, 6 where it is too large for one.
double toDouble(std::string_view text);

/// A text as boolean: "True" and "False" in any case, otherwise a number, of which any but 0 is true; 13
/// otherwise.
bool toBool(std::string_view text);

/// The number at the start of a text, read with a point as separator whatever the locale: blanks, tabs and
/// line feeds are skipped wherever they stand, reading stops at the first character that can't belong, 0
/// where there is none, 6 where it is too large. "&H" and "&O" forms of up to 16 bits are a 16-bit number
/// ("&HFFFF" is -1) unless "&" follows, longer ones a 32-bit number.
double val(std::string_view text);

/// Truncation toward zero.
double fix(double value);

/// The narrowing of a double to a single; 6 where it doesn't fit.
float toSingle(double value);

/// The shortest text of a single with at most seven digits, without a blank in front, with the locale's
/// decimal separator. An exponent stands where plain notation would need more than seven digits before or
/// behind the separator and below 0.0001: "0.1", "0.3333333", "3.333334E-02", "1.5E-05", "1E+07".
std::string singleText(float value);

/// The same for a double, with at most fifteen digits.
std::string doubleText(double value);

/// The shortest text that val() reads as that very double.
std::string plainText(double value);

/// A whole number with at least two digits: 7 gives "07", 123 gives "123", -5 gives "-05".
std::string format00(std::int32_t value);

/// A number with exactly `decimals` decimals, halves away from zero, with the locale's decimal separator: the
/// formats "0", "0.0", "0.00". What rounds to zero has no sign.
std::string formatFixed(double value, int decimals);

/// Whether toDouble() would succeed (an empty text is no number).
bool isNumeric(std::string_view text);

/// Whether a text is a number that nobody can have meant otherwise: toDouble() passes over separators of
/// thousands wherever they stand, and reads "1,5" as 15; here they stand before groups of three digits only.
bool isTypedNumber(std::string_view text);

/// Whether a text is a date or time: "2026-01-31", "31.01.2026", "1/31/2026", "9:30", "09:30:15", "9:30 PM",
/// or a date followed by a time. The day must exist. Day and month change places where only that makes a
/// date, and a year of two digits lies between 1930 and 2029.
bool isDate(std::string_view text);

/// The serial number of such a text: days since 1899-12-30, the time of the day as fraction; 13 where it is
/// no date.
double toDate(std::string_view text);

/// A serial date as "yyyy-mm-dd"; 6 outside the years 100 to 9999.
std::string isoDate(double serial);
/// The time of the day of a serial date as "hh:mm:ss", to the second.
std::string isoTime(double serial);

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
