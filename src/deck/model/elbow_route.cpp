#include "deck/model/elbow_route.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vellumark::deck {
namespace {

constexpr double quarter = fullTurn / 4;
/// EMU that a detour keeps from a shape.
constexpr double distance = 228'600;

std::int32_t share(double length, double side) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(
      std::clamp<double>(std::round(length / side * 100'000), Limits::min(), Limits::max()));
}

}  // namespace

Side turned(Side side, double rotation) {
  const auto quarters = static_cast<int>(std::lround(std::fmod(rotation, fullTurn) / quarter));
  return static_cast<Side>((static_cast<int>(side) + quarters + 8) % 4);
}

bool isDirect(const std::vector<std::int32_t>& adjustments) {
  return adjustments.size() < 2 && std::ranges::all_of(adjustments, [](std::int32_t adjustment) {
           return adjustment >= 0 && adjustment <= 100'000;
         });
}

/// The way is worked out as if it began to the right and went down; the frame turns and mirrors it.
ElbowRoute elbowRoute(Point start, Side startSide, Point end, Side endSide) {
  ElbowRoute route;
  ShapeFrame& frame = route.frame;
  frame.rotation = quarter * static_cast<int>(startSide);
  const Point way = turned({std::round(end.x - start.x), std::round(end.y - start.y)}, -frame.rotation);
  frame.flipH = way.x < -0.5;
  frame.flipV = way.y < -0.5;
  frame.width = std::round(std::abs(way.x));
  frame.height = std::round(std::abs(way.y));
  const double along = frame.flipH ? -frame.width : frame.width;
  const double down = frame.height;
  Side arrival = turned(endSide, -frame.rotation);
  if (frame.flipV && (arrival == Side::up || arrival == Side::down)) {
    arrival = arrival == Side::up ? Side::down : Side::up;
  }

  // Where the way turns: x along the first side, y down from the start, x again.
  std::vector<double> turns;
  switch (arrival) {
    case Side::left:
      if (along > 0) {
        turns = {along / 2};
      } else {
        turns = {distance, down / 2, along - distance};
      }
      break;
    case Side::right:
      turns = {std::max(0.0, along) + distance};
      break;
    case Side::up:
      if (along <= 0 || down <= 0) turns = {distance, down / 2};
      break;
    case Side::down:
      turns = {along > 0 ? along / 2 : distance, down + distance};
      break;
  }
  route.segments = static_cast<int>(turns.size()) + 2;

  const Point middle{(start.x + end.x) / 2, (start.y + end.y) / 2};
  if (!turns.empty()) frame.width = std::max(frame.width, narrowestDetour);
  if (turns.size() > 1) frame.height = std::max(frame.height, narrowestDetour);
  for (std::size_t i = 0; i < turns.size(); ++i) {
    route.adjustments.push_back(i == 1 ? share(turns[i], frame.height)
                                       : share(frame.flipH ? -turns[i] : turns[i], frame.width));
  }
  frame.x = std::round(middle.x - frame.width / 2);
  frame.y = std::round(middle.y - frame.height / 2);
  return route;
}

}  // namespace vellumark::deck
