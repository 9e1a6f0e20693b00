// Texts and serial numbers of dates. A serial number counts days since 1899-12-30; the time of the day is the
// fraction, which points away from zero for earlier days too: -1.5 is noon of 1899-12-29.

#include <chrono>
#include <cmath>
#include <utility>

#include "base/conversions.h"
#include "base/error.h"

namespace vellumark::base {
namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days dayZero = std::chrono::year{1899} / 12 / 30;
constexpr double secondsOfDay = 86400;

struct Field {
  int value = 0;
  std::size_t length = 0;  ///< digits
};

class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  bool atEnd() const { return text_.empty(); }
  bool take(char c) {
    if (text_.empty() || text_[0] != c) return false;
    text_.remove_prefix(1);
    return true;
  }
  bool takeBlanks() {
    const std::size_t before = text_.size();
    while (take(' ')) continue;
    return text_.size() != before;
  }
  /// A word in any case.
  bool takeWord(std::string_view upper) {
    if (text_.size() < upper.size()) return false;
    for (std::size_t i = 0; i < upper.size(); ++i) {
      if ((text_[i] & ~0x20) != upper[i]) return false;
    }
    text_.remove_prefix(upper.size());
    return true;
  }
  /// One to four digits.
  std::optional<Field> takeField() {
    Field field;
    for (; !text_.empty() && text_[0] >= '0' && text_[0] <= '9'; text_.remove_prefix(1)) {
      if (++field.length > 4) return std::nullopt;
      field.value = field.value * 10 + (text_[0] - '0');
    }
    if (field.length == 0) return std::nullopt;
    return field;
  }

 private:
  std::string_view text_;
};

std::optional<int> dayOf(const Field& year, const Field& month, const Field& day) {
  if (month.length > 2 || day.length > 2 || year.length == 3) return std::nullopt;
  // Two digits of a year lie between 1930 and 2029.
  const int whole = year.length > 2 ? year.value : year.value + (year.value < 30 ? 2000 : 1900);
  const year_month_day date = std::chrono::year{whole} / month.value / day.value;
  if (whole < 100 || !date.ok()) return std::nullopt;
  return (sys_days(date) - dayZero).count();
}

/// Year first where the first number has four digits; otherwise the year comes last, behind day and month
/// where points divide them and behind month and day elsewhere, the other way round where only that makes a
/// date.
std::optional<int> takeDay(Scanner& scanner) {
  const auto first = scanner.takeField();
  if (!first) return std::nullopt;
  const char divider = scanner.take('-') ? '-' : scanner.take('/') ? '/' : scanner.take('.') ? '.' : '\0';
  if (divider == '\0') return std::nullopt;
  const auto second = scanner.takeField();
  if (!second || !scanner.take(divider)) return std::nullopt;
  const auto third = scanner.takeField();
  if (!third) return std::nullopt;
  if (first->length == 4) return dayOf(*first, *second, *third);
  auto month = *first;
  auto day = *second;
  if (divider == '.') std::swap(month, day);
  const auto usual = dayOf(*third, month, day);
  return usual ? usual : dayOf(*third, day, month);
}

std::optional<double> takeTime(Scanner& scanner) {
  const auto hour = scanner.takeField();
  if (!hour || hour->length > 2) return std::nullopt;
  Field minute;
  Field second;
  const bool hasMinute = scanner.take(':');
  if (hasMinute) {
    const auto field = scanner.takeField();
    if (!field) return std::nullopt;
    minute = *field;
    if (scanner.take(':')) {
      const auto last = scanner.takeField();
      if (!last) return std::nullopt;
      second = *last;
    }
  }
  scanner.takeBlanks();
  const bool afternoon = scanner.takeWord("PM");
  const bool halves = afternoon || scanner.takeWord("AM");
  if (!hasMinute && !halves) return std::nullopt;
  int hours = hour->value;
  if (halves) {
    if (hours > 12) return std::nullopt;
    hours = hours % 12 + (afternoon ? 12 : 0);
  }
  if (hours > 23 || minute.length > 2 || minute.value > 59 || second.length > 2 || second.value > 59) {
    return std::nullopt;
  }
  return ((hours * 60 + minute.value) * 60 + second.value) / secondsOfDay;
}

std::optional<double> parseDate(std::string_view text) {
  Scanner scanner(text);
  scanner.takeBlanks();
  Scanner ahead = scanner;
  int day = 0;
  bool needsTime = true;
  if (const auto taken = takeDay(ahead)) {
    day = *taken;
    scanner = ahead;
    const bool blank = scanner.takeBlanks();
    if (scanner.atEnd()) needsTime = false;
    if (needsTime && !blank) return std::nullopt;
  }
  double time = 0;
  if (needsTime) {
    const auto taken = takeTime(scanner);
    if (!taken) return std::nullopt;
    time = *taken;
    scanner.takeBlanks();
  }
  if (!scanner.atEnd()) return std::nullopt;
  return day < 0 ? day - time : day + time;
}

}  // namespace

bool isDate(std::string_view text) { return parseDate(text).has_value(); }

double toDate(std::string_view text) {
  const auto serial = parseDate(text);
  if (!serial) raise(errors::typeMismatch);
  return *serial;
}

std::string isoDate(double serial) {
  constexpr double first = (sys_days(std::chrono::year{100} / 1 / 1) - dayZero).count();
  constexpr double last = (sys_days(std::chrono::year{9999} / 12 / 31) - dayZero).count();
  // To the second, as clocks show it: the last half second of a day belongs to the next.
  double day = fix(serial);
  if (std::round(std::fabs(serial - day) * secondsOfDay) >= secondsOfDay) ++day;
  if (!(day >= first && day <= last)) raise(errors::overflow);
  const year_month_day date = dayZero + std::chrono::days{static_cast<int>(day)};
  const std::string year = std::to_string(static_cast<int>(date.year()));
  return std::string(4 - year.size(), '0') + year + "-" +
         format00(static_cast<int>(static_cast<unsigned>(date.month()))) + "-" +
         format00(static_cast<int>(static_cast<unsigned>(date.day())));
}

std::string isoTime(double serial) {
  const double exact = std::round(std::fabs(serial - fix(serial)) * secondsOfDay);
  const int seconds = static_cast<int>(exact) % static_cast<int>(secondsOfDay);
  return format00(seconds / 3600) + ":" + format00(seconds / 60 % 60) + ":" + format00(seconds % 60);
}

}  // namespace vellumark::base
