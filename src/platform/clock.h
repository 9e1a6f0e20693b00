#pragma once
// The time. The environment variable VELLUMARK_NOW ("yyyy-mm-dd hh:mm:ss", local time) makes it stand still.

#include <chrono>
#include <cstdint>

namespace vellumark::platform {

/// Local date and time as serial date: days since 1899-12-30, the time of the day as fraction, in whole
/// seconds. Raises 13 where VELLUMARK_NOW is no date.
double now();

/// The same moment as system time.
std::chrono::system_clock::time_point systemTime();

/// Milliseconds of a clock that never goes back and never stands still; wraps around after 49 days.
std::uint32_t tickMilliseconds();

}  // namespace vellumark::platform
