// Measuring and placing shapes by their visual boxes.

#include <cmath>

#include "base/conversions.h"
#include "core/failure.h"
#include "core/helpers.h"
#include "core/message.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using base::toSingle;
using core::trap;
using host::Shape;

/// Pi to these 15 digits and no more: the noise that they leave at right angles belongs to the figures.
constexpr double pi = 3.14159265358979;

void refuse(const char* text) { core::message(text, ui::Icon::critical); }

}  // namespace

RotatedMetrics TrimlineTools::getRotatedMetrics(const Shape& shape) {
  return trap("TrimlineTools, getRotatedMetrics", [&] {
    RotatedMetrics metrics;
    const double angle = static_cast<double>(shape.Rotation()) / 180 * pi;
    const double frameHeight = shape.Height();
    const double frameWidth = shape.Width();
    metrics.Height = std::abs(frameHeight * std::cos(angle) + frameWidth * std::sin(angle));
    metrics.Width = std::abs(frameWidth * std::cos(angle) + frameHeight * std::sin(angle));
    metrics.Top = shape.Top() + frameHeight / 2 - metrics.Height / 2;
    metrics.Left = shape.Left() + frameWidth / 2 - metrics.Width / 2;
    return metrics;
  });
}

double TrimlineTools::getLeft(const Shape& shape) {
  return trap("TrimlineTools, getLeft", [&] { return getRotatedMetrics(shape).Left; });
}

double TrimlineTools::getTop(const Shape& shape) {
  return trap("TrimlineTools, getTop", [&] { return getRotatedMetrics(shape).Top; });
}

double TrimlineTools::getWidth(const Shape& shape) {
  return trap("TrimlineTools, getWidth", [&] { return getRotatedMetrics(shape).Width; });
}

double TrimlineTools::getHeight(const Shape& shape) {
  return trap("TrimlineTools, getHeight", [&] { return getRotatedMetrics(shape).Height; });
}

void TrimlineTools::setLeft(const Shape& shape, double x) {
  trap("TrimlineTools, setLeft",
       [&] { shape.Left(toSingle(x + 0.5 * getWidth(shape) - 0.5 * shape.Width())); });
}

void TrimlineTools::setTop(const Shape& shape, double y) {
  trap("TrimlineTools, setTop",
       [&] { shape.Top(toSingle(y + 0.5 * getHeight(shape) - 0.5 * shape.Height())); });
}

// At 90 and 270 degrees the frame's sides have changed roles. Where the position is corrected it is written
// first, by the full difference to the frame's height at 90 and to its width at 180 (setWidth) and 270
// degrees.
void TrimlineTools::setWidth(const Shape& shape, double width) {
  trap("TrimlineTools, setWidth", [&] {
    const double rotation = core::normalizeRotation(shape);
    if (rotation == 0) {
      shape.Width(toSingle(width));
    } else if (rotation == 90) {
      shape.Left(toSingle(shape.Left() + width - shape.Height()));
      shape.Height(toSingle(width));
    } else if (rotation == 180) {
      shape.Left(toSingle(shape.Left() + width - shape.Width()));
      shape.Width(toSingle(width));
    } else if (rotation == 270) {
      shape.Left(toSingle(shape.Left() + width - shape.Width()));
      shape.Height(toSingle(width));
    } else {
      refuse("Shape width can only be set if shape is rotated by a multiple of 90 degrees.");
    }
  });
}

void TrimlineTools::setHeight(const Shape& shape, double height) {
  trap("TrimlineTools, setHeight", [&] {
    const double rotation = core::normalizeRotation(shape);
    if (rotation == 0) {
      shape.Height(toSingle(height));
    } else if (rotation == 90) {
      shape.Top(toSingle(shape.Top() + height - shape.Height()));
      shape.Width(toSingle(height));
    } else if (rotation == 180) {
      shape.Top(toSingle(shape.Top() + height - shape.Height()));
      shape.Height(toSingle(height));
    } else if (rotation == 270) {
      shape.Top(toSingle(shape.Top() + height - shape.Width()));
      shape.Width(toSingle(height));
    } else {
      refuse("Shape height can only be set if shape is rotated by a multiple of 90 degrees.");
    }
  });
}

}  // namespace vellumark::tools
