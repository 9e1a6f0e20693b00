#include "agenda/agenda_numbers.h"

#include <cstdlib>

#include "base/conversions.h"

namespace vellumark::agenda {

AgendaNumbers::Kind AgendaNumbers::count(std::int16_t level, bool isBreak, const NumberRules& rules) {
  if (isBreak && rules.enumerateBreak != 1) return Kind::none;
  if (level == 1) {
    mainNumber = base::add16(mainNumber, 1);
    // A numbered break leaves the numbers below it going on.
    if (isBreak) return Kind::mainBreak;
    subNumber = 0;
    return Kind::main;
  }
  if (level == 2 && rules.enumerate2ndLevel == "dot") {
    subNumber = base::add16(subNumber, 1);
    return Kind::sub;
  }
  if (level == 2 && rules.enumerate2ndLevel == "continuous") {
    mainNumber = base::add16(mainNumber, 1);
    return Kind::continued;
  }
  return Kind::none;
}

std::string AgendaNumbers::text(Kind kind) const {
  if (kind == Kind::none) return "";
  const std::string main = std::to_string(mainNumber);
  return kind == Kind::sub ? main + "." + std::to_string(subNumber) : main;
}

std::string timeText(std::int16_t minutes) {
  constexpr int minutesOfDay = 24 * 60;
  const int ofDay = std::abs(int{minutes}) % minutesOfDay;
  return base::format00(ofDay / 60) + ":" + base::format00(ofDay % 60);
}

}  // namespace vellumark::agenda
