#include <gtest/gtest.h>

#include "base/conversions.h"
#include "base/error_number.h"

namespace vellumark::base {
namespace {

TEST(Dates, TextsGiveSerialNumbers) {
  const std::pair<const char*, double> cases[] = {
      {"1899-12-30", 0},
      {"1900-01-01", 2},
      {"2026-01-31", 46053},
      {"31.01.2026", 46053},
      {"1/31/2026", 46053},
      {"31/1/2026", 46053},
      {"1.31.2026", 46053},
      {"31.1.26", 46053},
      {"2/1/2026", 46054},
      {"2.1.2026", 46024},
      {"1-31-2026", 46053},
      {"31.12.29", 47483},
      {"1.1.30", 10959},
      {"2024-02-29", 45351},
      {"2000-02-29", 36585},
      {"9999-12-31", 2958465},
      {"0100-01-01", -657434},
      {"12:00", 0.5},
      {" 6:00 ", 0.25},
      {"09:30:15", 34215. / 86400},
      {"9:30 PM", 0.895833333333333333},
      {"12:00 AM", 0},
      {"12:00pm", 0.5},
      {"6 pm", 0.75},
      {"0:00", 0},
      {"2026-01-31 18:00", 46053.75},
      {"1899-12-29 12:00", -1.5},
  };
  for (const auto& [text, serial] : cases) {
    ASSERT_TRUE(isDate(text)) << text;
    EXPECT_DOUBLE_EQ(toDate(text), serial) << text;
  }
}

TEST(Dates, WhatIsNoDateIsRefused) {
  const auto refused = [](const char* text) {
    return !isDate(text) && test::errorNumber([&] { return toDate(text); }) == 13;
  };
  for (const char* text : {"2026-02-29", "1900-02-29", "2026-13-13", "2026-04-31", "31.13.2026", "0.1.2026",
                           "2026-01", "2026-01-31x", "2026-01-31T10:00", "2026-01-3110:00", "26-01-31x",
                           "1.1.100000", "1.1.203", "0099-12-31", "2026/01-31", "10:00 2026-01-31"})
    EXPECT_TRUE(refused(text)) << '"' << text << '"';
  for (const char* text : {"", " ", "abc", "12", "24:00", "12:60", "12:00:60", "13:00 PM",
                           "9:", "9:30:", ":30", "9:30 XM", "9.30", "-1:00"})
    EXPECT_TRUE(refused(text)) << '"' << text << '"';
}

TEST(Dates, SerialNumbersGiveIsoTexts) {
  const std::pair<double, const char*> cases[] = {
      {0, "1899-12-30"},    {46053, "2026-01-31"},   {46053.75, "2026-01-31"}, {46053.999999, "2026-02-01"},
      {-1.5, "1899-12-29"}, {-657434, "0100-01-01"}, {2958465, "9999-12-31"},  {45350.5, "2024-02-28"}};
  for (const auto& [serial, text] : cases) EXPECT_EQ(isoDate(serial), text) << serial;
  EXPECT_EQ(test::errorNumber([] { return isoDate(2958466); }), 6);
  EXPECT_EQ(test::errorNumber([] { return isoDate(1e300); }), 6);
}

}  // namespace
}  // namespace vellumark::base
