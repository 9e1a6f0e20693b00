#pragma once

#include <QImage>

#include "ui/png_painter.h"

class QPainter;

namespace vellumark::ui::qt {

/// Draws a drawing by the painter's own transformation. No application object is needed for it.
void paintDrawing(const platform::Drawing& drawing, QPainter& painter);

/// The PngPainter of this toolkit.
bool paintPng(const platform::Drawing& drawing, const PngFile& file);

}  // namespace vellumark::ui::qt
