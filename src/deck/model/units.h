#pragma once
// Lengths: the file counts in EMU, 12700 to the point; the object model in points as singles.

#include <cmath>
#include <cstdint>

namespace vellumark::deck {

inline constexpr double emuPerPoint = 12700.0;

/// The single that is nearest to a length in the file.
inline float toPoints(std::int64_t emu) { return static_cast<float>(static_cast<double>(emu) / emuPerPoint); }
/// The whole number of EMU that is nearest to a length in points.
inline std::int64_t toEmu(double points) { return std::llround(points * emuPerPoint); }

}  // namespace vellumark::deck
