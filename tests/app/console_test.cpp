// What the program prints stays on its line and in its column, whatever a deck holds.

#include "console.h"

#include <gtest/gtest.h>

#include "arguments.h"

namespace vellumark::app {
namespace {

TEST(Console, LinesAreSafeOnATerminal) {
  const struct {
    std::string text, line;
  } cases[] = {
      {"plain", "plain"},
      {"two\rparagraphs\vand\ta tab", "two paragraphs and a tab"},
      {"\x1b[31mred", "\xEF\xBF\xBD[31mred"},
      {std::string("a\0b", 3),
       "a\xEF\xBF\xBD"
       "b"},
      {"C1 \xC2\x9B"
       "31m",
       "C1 \xEF\xBF\xBD"
       "31m"},
      {"turned \xE2\x80\xAE over", "turned \xEF\xBF\xBD over"},
      {"stray \xFF, cut \xE2\x82", "stray \xEF\xBF\xBD, cut \xEF\xBF\xBD\xEF\xBF\xBD"},
      {"overlong \xC0\xAF", "overlong \xEF\xBF\xBD\xEF\xBF\xBD"},
      {"€ 48.2 m, 売上 🚚", "€ 48.2 m, 売上 🚚"},
  };
  for (const auto& c : cases) EXPECT_EQ(oneLine(c.text), c.line);
}

TEST(Console, ExcerptsEndWithinTheirColumns) {
  const struct {
    std::string text;
    std::size_t width;
    std::string shown;
  } cases[] = {
      {"1234567890", 10, "1234567890"},
      {"12345678901", 10, "123456789…"},
      {"売上高推移", 10, "売上高推移"},
      {"売上高推移図", 10, "売上高推…"},
      {"e\u0301e\u0301e\u0301e\u0301", 3, "e\u0301e\u0301…"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(excerpt(c.text, c.width), c.shown);
    EXPECT_LE(displayWidth(excerpt(c.text, c.width)), c.width);
  }
}

TEST(Console, TablesLineUp) {
  Table table({{"name"}, {"left", Table::Align::right}});
  table.row({"売上", "9"});
  table.row({"Umsätze\n", "106.07"});
  EXPECT_EQ(table.text("  "), "  name        left\n  売上           9\n  Umsätze   106.07\n");
}

TEST(Console, LengthsAreShort) {
  EXPECT_EQ(pointsText(12), "12");
  EXPECT_EQ(pointsText(106.066), "106.07");
  EXPECT_EQ(pointsText(-0.001), "0");
  EXPECT_EQ(pointsText(-8.5), "-8.5");
  EXPECT_EQ(pointsText(1200), "1200");
}

TEST(Arguments, ListsSplitAtUnescapedCommas) {
  const struct {
    std::string list;
    std::vector<std::string> parts;
  } cases[] = {
      {"A,B", {"A", "B"}},
      {R"(Text\, long,B)", {"Text, long", "B"}},
      {R"(back\\slash,C:\x)", {R"(back\slash)", R"(C:\x)"}},
      {"one", {"one"}},
  };
  for (const auto& c : cases) EXPECT_EQ(splitList(c.list), c.parts);
}

}  // namespace
}  // namespace vellumark::app
