#include "platform/clock.h"

#include <cmath>
#include <ctime>

#include "base/conversions.h"
#include "base/error.h"
#include "platform/environment.h"

namespace vellumark::platform {
namespace {

constexpr double secondsOfDay = 86400;

std::optional<double> fixedNow() {
  const auto text = environmentVariable("VELLUMARK_NOW");
  if (!text) return std::nullopt;
  if (!base::isDate(*text)) {
    base::raise(base::errors::typeMismatch, "VELLUMARK_NOW is \"" + *text + "\" and no yyyy-mm-dd hh:mm:ss");
  }
  return base::toDate(*text);
}

}  // namespace

double now() {
  if (const auto fixed = fixedNow()) return *fixed;
  const std::time_t time = std::time(nullptr);
  std::tm local{};
  localtime_r(&time, &local);
  using namespace std::chrono;
  const auto date = year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday;
  const auto days = sys_days(date) - sys_days(year{1899} / 12 / 30);
  return days.count() + ((local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec) / secondsOfDay;
}

std::chrono::system_clock::time_point systemTime() {
  const auto fixed = fixedNow();
  if (!fixed) return std::chrono::system_clock::now();
  // mktime brings day and second into their ranges.
  std::tm local{};
  const double day = base::fix(*fixed);
  local.tm_year = 1899 - 1900;
  local.tm_mon = 11;
  local.tm_mday = 30 + static_cast<int>(day);
  local.tm_sec = static_cast<int>(std::lround(std::fabs(*fixed - day) * secondsOfDay));
  local.tm_isdst = -1;
  return std::chrono::system_clock::from_time_t(std::mktime(&local));
}

std::uint32_t tickMilliseconds() {
  using namespace std::chrono;
  return static_cast<std::uint32_t>(
      duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

}  // namespace vellumark::platform
