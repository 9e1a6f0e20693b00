#pragma once
// Random numbers for games and decoration, one sequence for the process. Not for secrets.

#include <cstdint>

namespace vellumark::platform {

/// Begins the sequence that belongs to `seed`. Without a seed it begins with that of 0.
void seedRandom(std::uint32_t seed);

/// Begins a sequence that depends on the time of the day, to a hundredth of a second; the same one for the
/// same VELLUMARK_NOW.
void randomize();

/// The next number, at least 0 and less than 1.
float random();

}  // namespace vellumark::platform
