#include "platform/random.h"

#include <chrono>
#include <random>

#include "platform/clock.h"

namespace vellumark::platform {
namespace {

std::mt19937& sequence() {
  static std::mt19937 generator(0);
  return generator;
}

}  // namespace

void seedRandom(std::uint32_t seed) { sequence().seed(seed); }

void randomize() {
  using Hundredths = std::chrono::duration<std::int64_t, std::centi>;
  const auto time = std::chrono::duration_cast<Hundredths>(systemTime().time_since_epoch());
  seedRandom(static_cast<std::uint32_t>(time.count()));
}

float random() {
  return static_cast<float>(sequence()() >> 8) * 0x1p-24F;  // as many bits as a single holds exactly
}

}  // namespace vellumark::platform
