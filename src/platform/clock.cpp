#include "platform/clock.h"

#include <cmath>
#include <ctime>
#include <filesystem>

#include "base/conversions.h"
#include "base/error.h"
#include "platform/environment.h"
#include "platform/file_date.h"
#include "platform/paths.h"

namespace vellumark::platform {
namespace {

constexpr double secondsOfDay = 86400;
constexpr std::chrono::sys_days serialDayZero = std::chrono::year{1899} / 12 / 30;

std::optional<double> fixedNow() {
  const auto text = environmentVariable("VELLUMARK_NOW");
  if (!text) return std::nullopt;
  if (!base::isDate(*text)) {
    base::raise(base::errors::typeMismatch, "VELLUMARK_NOW is \"" + *text + "\" and no yyyy-mm-dd hh:mm:ss");
  }
  return base::toDate(*text);
}

/// A moment as local date and time.
double serialOf(std::time_t time) {
  const std::tm local = *std::localtime(&time);
  using namespace std::chrono;
  const auto date = year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday;
  const auto days = sys_days(date) - serialDayZero;
  return days.count() + ((local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec) / secondsOfDay;
}

}  // namespace

double now() {
  if (const auto fixed = fixedNow()) return *fixed;
  return serialOf(std::time(nullptr));
}

double lastModified(const std::string& path) {
  std::error_code error;
  const auto time = std::filesystem::last_write_time(pathOf(toSystem(path)), error);
  if (error) {
    base::raise(base::errors::fileNotFound,
                base::standardDescription(base::errors::fileNotFound) + ": " + path);
  }
  const auto system = std::chrono::file_clock::to_sys(time);
  return serialOf(std::chrono::system_clock::to_time_t(
      std::chrono::time_point_cast<std::chrono::system_clock::duration>(system)));
}

std::chrono::system_clock::time_point systemTime() {
  const auto fixed = fixedNow();
  if (!fixed) return std::chrono::system_clock::now();
  const double day = base::fix(*fixed);
  const std::chrono::year_month_day date = serialDayZero + std::chrono::days(static_cast<int>(day));
  std::tm local{};
  local.tm_year = static_cast<int>(date.year()) - 1900;
  local.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
  local.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
  // mktime brings the second into its range.
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
