#include "base/conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

#include "base/error_number.h"

namespace vellumark::base {
namespace {

using test::errorNumber;

class Conversions : public testing::Test {
 protected:
  Conversions() { setDecimalSeparator('.'); }
  ~Conversions() override { setDecimalSeparator(std::nullopt); }
};

TEST_F(Conversions, RoundNumbersHalvesToEven) {
  const std::pair<double, int> cases[] = {
      {-0.5, 0},  {0.5, 0},  {1.5, 2},  {2.5, 2},    {-1.5, -2},
      {-2.5, -2}, {2.49, 2}, {2.51, 3}, {-2.51, -3}, {359.6, 360},
  };
  for (const auto& [value, expected] : cases) {
    EXPECT_EQ(toInt16(value), expected) << value;
    EXPECT_EQ(toInt32(value), expected) << value;
  }
  EXPECT_EQ(toInt16(0.49999999999999994), 0);
  EXPECT_EQ(toInt16(32767.49), 32767);
  EXPECT_EQ(toInt16(-32768.5), -32768);
  EXPECT_EQ(toInt32(2147483647.4), 2147483647);
}

TEST_F(Conversions, RaiseOverflowOutsideOfTheRange) {
  const double inf = std::numeric_limits<double>::infinity();
  for (const double value : {32767.5, -32768.51, 1e300, inf, -inf, std::nan("")}) {
    EXPECT_EQ(errorNumber([&] { return toInt16(value); }), 6) << value;
  }
  for (const double value : {2147483647.5, -2147483648.51, inf, std::nan("")}) {
    EXPECT_EQ(errorNumber([&] { return toInt32(value); }), 6) << value;
  }
  EXPECT_EQ(errorNumber([] { return toSingle(3.5e38); }), 6);
  EXPECT_EQ(toSingle(3.4028234663852886e38), std::numeric_limits<float>::max());
}

void expectDouble(const char* text, double value) {
  ASSERT_TRUE(isNumeric(text)) << '"' << text << '"';
  EXPECT_DOUBLE_EQ(toDouble(text), value) << '"' << text << '"';
}

void expectNoDouble(const char* text, int error) {
  EXPECT_FALSE(isNumeric(text)) << '"' << text << '"';
  EXPECT_EQ(errorNumber([&] { return toDouble(text); }), error) << '"' << text << '"';
}

TEST_F(Conversions, ReadWholeTextsAsNumbers) {
  const std::pair<const char*, double> cases[] = {
      {"12", 12},     {"  12 ", 12},   {"\t-3.5\r\n", -3.5}, {"+4", 4},      {"- 4", -4},
      {"4-", -4},     {"(4.5)", -4.5}, {".5", .5},           {"5.", 5},      {"1,234.5", 1234.5},
      {"1,5", 15},    {"1e5", 1e5},    {"1D-2", .01},        {"1e+2 ", 100}, {"&HFFFF", 65535},
      {"&hff&", 255}, {"&O17", 15},    {"1e-400", 0},        {"0e999", 0},   {"0.0001e305", 1e301},
  };
  for (const auto& [text, value] : cases) expectDouble(text, value);
  for (const char* text : {"1,234.5", "1,234,567", "-12,345", "1.5", "0"})
    EXPECT_TRUE(isTypedNumber(text)) << text;
  for (const char* text : {"1,5", "1,2345", "1234,567", "1,23,456", "", "x"}) {
    EXPECT_FALSE(isTypedNumber(text)) << text;
  }
  for (const char* text : {"",    " ",  "12abc", "1e", "1.2.3", "1.5,3", ",5",  ".",   "-",   "--1",
                           "-4-", "(4", "4)",    "&H", "&HG",   "&O8",   "1 2", "inf", "nan", "0x1"}) {
    expectNoDouble(text, 13);
  }
  for (const char* text : {"1e400", "-1e99999999999999999999", "&H10000000000000000"})
    expectNoDouble(text, 6);

  setDecimalSeparator(',');
  expectDouble("1,5", 1.5);
  expectDouble("1.234,5", 1234.5);
  expectDouble("12.5", 125);
  expectNoDouble("1,2,3", 13);
}

TEST_F(Conversions, ReadWholeTextsAsIntegers) {
  struct {
    const char* text;
    int int16, int32;
    int error16 = 0, error32 = 0;
  } const cases[] = {
      {"2.5", 2, 2},
      {"1033", 1033, 1033},
      {"32767.5", 0, 32768, 6},
      {"&HFFFF", -1, 65535},
      {"&H8000", -32768, 32768},
      {"&H10000", 0, 65536, 6},
      {"&HFFFFFFFF", 0, -1, 6},
      {"&H100000000", 0, 0, 6, 6},
      {"1e5", 0, 100000, 6},
      {"12abc", 0, 0, 13, 13},
      {"", 0, 0, 13, 13},
  };
  for (const auto& test : cases) {
    int value16 = 0;
    int value32 = 0;
    EXPECT_EQ(errorNumber([&] { return value16 = toInt16(test.text); }), test.error16) << test.text;
    EXPECT_EQ(errorNumber([&] { return value32 = toInt32(test.text); }), test.error32) << test.text;
    EXPECT_EQ(value16, test.int16) << test.text;
    EXPECT_EQ(value32, test.int32) << test.text;
  }
}

TEST_F(Conversions, ReadTextsAsBooleans) {
  for (const char* text : {"True", "TRUE", "-1", "1", "0.1"}) EXPECT_TRUE(toBool(text)) << text;
  for (const char* text : {"False", "false", "0", "-0.0"}) EXPECT_FALSE(toBool(text)) << text;
  for (const char* text : {"", "yes", "Truely"}) {
    EXPECT_EQ(errorNumber([&] { return toBool(text); }), 13) << text;
  }
}

TEST_F(Conversions, ReadTheNumberInFrontOfAText) {
  setDecimalSeparator(',');  // which is not looked at
  const std::pair<const char*, double> cases[] = {
      {"1 2 3x", 123}, {"12abc", 12}, {".5E1", 5},    {"1,5", 1},         {"-2.5 cm", -2.5},  {"- 5", -5},
      {"", 0},         {"abc", 0},    {"--5", 0},     {"1.5.3", 1.5},     {"1e", 1},          {"1e+", 1},
      {"1d2", 100},    {"&HFF", 255}, {"&HFFFF", -1}, {"&HFFFF&", 65535}, {"&HFFFFFFFF", -1}, {"&O17z", 15},
      {"\t\n7", 7},    {"\r7", 0},    {"&H", 0},      {"-", 0},           {"1e-999", 0},      {"+3", 3}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(val(text), expected) << '"' << text << '"';
  EXPECT_FALSE(std::signbit(val("-0")));
  EXPECT_EQ(errorNumber([] { return val("1e999"); }), 6);
}

TEST_F(Conversions, WriteSinglesWithSevenDigits) {
  const std::pair<float, const char*> cases[] = {
      {0.1F, "0.1"},
      {1e-5F, "1E-05"},
      {1e7F, "1E+07"},
      {16777216.F, "1.677722E+07"},
      {123456.7F, "123456.7"},
      {-0.F, "0"},
      {9999999.F, "9999999"},
      {-12.5F, "-12.5"},
      {0.0001F, "0.0001"},
      {1.F / 3, "0.3333333"},
      {1.F / 15, "6.666667E-02"},
      {1e-10F, "1E-10"},
      {99999999.F, "1E+08"},
      {1.5e-5F, "1.5E-05"},
      {720.F, "720"},
      {-1.25e-30F, "-1.25E-30"},
      {3.4028235e38F, "3.402823E+38"},
  };
  for (const auto& [value, expected] : cases) EXPECT_EQ(singleText(value), expected);
  setDecimalSeparator(',');
  EXPECT_EQ(singleText(16777216.F), "1,677722E+07");
  EXPECT_EQ(singleText(0.5F), "0,5");
}

TEST_F(Conversions, WriteDoublesWithFifteenDigits) {
  const std::pair<double, const char*> cases[] = {
      {0.1, "0.1"},         {1.0 / 3, "0.333333333333333"},
      {1e15, "1E+15"},      {123456789012345, "123456789012345"},
      {39843.5, "39843.5"}, {1.0 / 24, "4.16666666666667E-02"},
      {0.1 + 0.2, "0.3"},   {-1e100, "-1E+100"},
  };
  for (const auto& [value, expected] : cases) EXPECT_EQ(doubleText(value), expected);
}

TEST_F(Conversions, WriteFixedFormats) {
  struct {
    double value;
    int decimals;
    const char* text;
  } const cases[] = {
      {0, 2, "0.00"},
      {0.125, 2, "0.13"},
      {2.675, 2, "2.68"},
      {-2.675, 2, "-2.68"},
      {0.5, 0, "1"},
      {2.5, 0, "3"},
      {0.049, 1, "0.0"},
      {-0.04, 1, "0.0"},
      {9.96, 1, "10.0"},
      {99.5, 0, "100"},
      {1e20, 1, "100000000000000000000.0"},
      {0.00001, 2, "0.00"},
      {0.006, 2, "0.01"},
      {1234.5, 1, "1234.5"},
      {7, 2, "7.00"},
      {0.9999, 2, "1.00"},
      {-12.34, 1, "-12.3"},
  };
  for (const auto& test : cases) EXPECT_EQ(formatFixed(test.value, test.decimals), test.text) << test.value;
  setDecimalSeparator(',');
  EXPECT_EQ(formatFixed(1.5, 2), "1,50");

  EXPECT_EQ(format00(7), "07");
  EXPECT_EQ(format00(123), "123");
  EXPECT_EQ(format00(-5), "-05");
  EXPECT_EQ(format00(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

TEST_F(Conversions, CheckIntegerArithmeticAndDivision) {
  EXPECT_EQ(add16(32766, 1), 32767);
  EXPECT_EQ(subtract16(-32767, 1), -32768);
  EXPECT_EQ(multiply16(-181, 181), -32761);
  EXPECT_EQ(errorNumber([] { return add16(32767, 1); }), 6);
  EXPECT_EQ(errorNumber([] { return subtract16(-32768, 1); }), 6);
  EXPECT_EQ(errorNumber([] { return multiply16(256, 128); }), 6);
  EXPECT_EQ(errorNumber([] { return add32(2147483647, 1); }), 6);
  EXPECT_EQ(divide(1, 4), 0.25);
  EXPECT_EQ(errorNumber([] { return divide(1, 0); }), 11);
  EXPECT_EQ(errorNumber([] { return divide(0, 0); }), 6);
  EXPECT_EQ(errorNumber([] { return divide(1e300, 1e-300); }), 6);
}

}  // namespace
}  // namespace vellumark::base
