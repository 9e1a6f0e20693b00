#include "deck/drawing/ellipse_angle.h"

#include <cmath>
#include <numbers>

namespace vellumark::deck {
namespace {

constexpr double degree = std::numbers::pi / 180;

}  // namespace

double ellipseParameter(double direction, double radiusX, double radiusY) {
  const double quarters = std::floor(direction / 90);
  const double rest = (direction - quarters * 90) * degree;
  if (rest == 0 || radiusX == radiusY) return direction;
  const bool odd = std::fmod(quarters, 2) != 0;  // then the axes have changed places
  const double along = odd ? radiusY : radiusX, across = odd ? radiusX : radiusY;
  return quarters * 90 + std::atan2(along * std::sin(rest), across * std::cos(rest)) / degree;
}

platform::DrawPoint onEllipse(platform::DrawPoint centre, double radiusX, double radiusY, double parameter) {
  return {centre.x + radiusX * std::cos(parameter * degree),
          centre.y + radiusY * std::sin(parameter * degree)};
}

double directionOf(double x, double y) { return std::atan2(y, x) / degree; }

}  // namespace vellumark::deck
