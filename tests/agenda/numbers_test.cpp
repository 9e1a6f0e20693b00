// Numbers and times of items.

#include <gtest/gtest.h>

#include "agenda/agenda_numbers.h"

namespace vellumark::agenda {
namespace {

struct Item {
  std::int16_t level;
  bool isBreak;
};

/// The numbers of a list in which breaks and both levels follow each other in every way.
std::string numbersOf(const NumberRules& rules) {
  AgendaNumbers numbers;
  std::string text;
  for (const auto& [level, isBreak] : {Item{1, false},
                                       {2, false},
                                       {2, false},
                                       {1, true},
                                       {2, false},
                                       {2, true},
                                       {1, false},
                                       {2, false},
                                       {3, false}}) {
    const auto kind = numbers.count(level, isBreak, rules);
    const std::string number = numbers.text(kind);
    text += (number.empty() ? "-" : number) + " ";
  }
  return text;
}

TEST(AgendaNumbers, FollowTheStyle) {
  const std::pair<NumberRules, const char*> cases[] = {
      {{"dot", 0}, "1 1.1 1.2 - 1.3 - 2 2.1 - "}, {{"dot", 1}, "1 1.1 1.2 2 2.3 2.4 3 3.1 - "},
      {{"continuous", 0}, "1 2 3 - 4 - 5 6 - "},  {{"continuous", 1}, "1 2 3 4 5 6 7 8 - "},
      {{"none", 0}, "1 - - - - - 2 - - "},        {{"", 2}, "1 - - - - - 2 - - "},
  };
  for (const auto& [rules, expected] : cases) {
    EXPECT_EQ(numbersOf(rules), expected) << rules.enumerate2ndLevel << rules.enumerateBreak;
  }
}

TEST(AgendaNumbers, TimesWrapAtMidnight) {
  const std::pair<int, const char*> cases[] = {{0, "00:00"},    {540, "09:00"},  {1439, "23:59"},
                                               {1440, "00:00"}, {1470, "00:30"}, {32767, "18:07"}};
  for (const auto& [minutes, expected] : cases) {
    EXPECT_EQ(timeText(static_cast<std::int16_t>(minutes)), expected);
  }
}

}  // namespace
}  // namespace vellumark::agenda
