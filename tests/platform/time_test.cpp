#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <set>
#include <thread>

#include "base/conversions.h"
#include "base/error_number.h"
#include "platform/clock.h"
#include "platform/environment_guard.h"
#include "platform/guid.h"
#include "platform/random.h"

namespace vellumark::platform {
namespace {

TEST(Clock, TellsLocalTimeAsSerialDate) {
  const test::EnvironmentGuard fixed("VELLUMARK_NOW", std::nullopt);
  // Whatever the local time is, reading it back as system time gives the present moment.
  const std::time_t present = std::time(nullptr);
  const double serial = now();
  const std::tm local = *std::localtime(&present);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
  EXPECT_NEAR(serial, base::toDate(text), 2.0 / 86400);
}

TEST(Clock, StandsStillWhereItIsTold) {
  const test::EnvironmentGuard zone("TZ", "UTC-2");
  tzset();
  const test::EnvironmentGuard fixed("VELLUMARK_NOW", "2026-02-28 23:59:58");
  EXPECT_EQ(base::isoDate(now()), "2026-02-28");
  EXPECT_EQ(std::llround(now() * 86400) % 86400, 86398);
  EXPECT_EQ(std::chrono::system_clock::to_time_t(systemTime()), 1772315998);
  fixed.set("2026-02-30");
  EXPECT_EQ(test::errorNumber(now), 13);
}

TEST(Clock, TicksGoOnWhileItStands) {
  const test::EnvironmentGuard fixed("VELLUMARK_NOW", "2026-02-28 12:00:00");
  const std::uint32_t before = tickMilliseconds();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  const std::uint32_t passed = tickMilliseconds() - before;
  EXPECT_GE(passed, 19U);
  EXPECT_LT(passed, 10000U);
}

TEST(Random, RepeatsWithItsSeedAndStaysBelowOne) {
  const auto three = [] { return std::array{random(), random(), random()}; };
  seedRandom(5);
  const auto first = three();
  seedRandom(6);
  EXPECT_NE(three(), first);
  seedRandom(5);
  EXPECT_EQ(three(), first);

  float lowest = 1;
  float highest = 0;
  for (int i = 0; i < 10000; ++i) {
    const float number = random();
    lowest = std::min(lowest, number);
    highest = std::max(highest, number);
  }
  EXPECT_GE(lowest, 0.F);
  EXPECT_LT(lowest, 0.01F);
  EXPECT_GT(highest, 0.99F);
  EXPECT_LT(highest, 1.F);

  const test::EnvironmentGuard fixed("VELLUMARK_NOW", "2026-02-28 12:00:00");
  randomize();
  const auto atNoon = three();
  randomize();
  EXPECT_EQ(three(), atNoon);
}

TEST(Guid, IsRandomOfVersionFour) {
  std::set<Guid> seen;
  for (int i = 0; i < 100; ++i) {
    const auto guid = newGuid();
    ASSERT_TRUE(guid);
    EXPECT_EQ((*guid)[6] >> 4, 4);
    EXPECT_EQ((*guid)[8] >> 6, 2);
    seen.insert(*guid);
  }
  EXPECT_EQ(seen.size(), 100U);
}

}  // namespace
}  // namespace vellumark::platform
