#pragma once
// The way of a connector that runs along the axes, from one side of a shape to a side of another.

#include <cstdint>
#include <vector>

#include "deck/model/shape_frame.h"

namespace vellumark::deck {

/// Where a side of a shape looks, in quarter turns clockwise.
enum class Side { right, down, left, up };
/// A side of a shape that is turned, by 60000ths of a degree.
Side turned(Side side, double rotation);

/// EMU that the frame of a way with turns measures at least, since its turns are counted in shares of it. The
/// ends of such a way lie in the middle of that.
inline constexpr double narrowestDetour = 12'700;

struct ElbowRoute {
  int segments = 3;  ///< 2 to 5, as in the names of the presets
  ShapeFrame frame;
  std::vector<std::int32_t> adjustments;  ///< of the preset, in 100000ths
};

/// Whether a way with these adjustments lies within its frame, as one without a detour does.
bool isDirect(const std::vector<std::int32_t>& adjustments);

/// The way from `start`, which is left to where its side looks, to `end`, which is reached from where its
/// side looks. Where the shapes are in the way it makes a detour.
ElbowRoute elbowRoute(Point start, Side startSide, Point end, Side endSide);

}  // namespace vellumark::deck
