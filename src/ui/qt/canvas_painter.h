#pragma once

#include <QImage>

#include "ui/canvas.h"

class QPainter;

namespace vellumark::ui {

/// The picture that a canvas describes, on a transparent ground.
QImage renderCanvas(const Canvas& canvas);

namespace qt {

/// Draws a canvas with its left upper corner at the painter's origin.
void paintCanvas(const Canvas& canvas, QPainter& painter);

}  // namespace qt
}  // namespace vellumark::ui
