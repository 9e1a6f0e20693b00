#pragma once
// What paints drawings into picture files, where the program has brought something that can.

#include <string>

#include "platform/drawing.h"

namespace vellumark::ui {

/// Where and how a drawing becomes pixels.
struct PngFile {
  int width = 0;  ///< pixels
  int height = 0;
  platform::Affine toPixels;  ///< from the drawing's points
  platform::Argb ground = 0;
  std::string path;  ///< the system's
};

/// Paints a drawing into a picture file; false where that can't be written.
using PngPainter = bool (*)(const platform::Drawing& drawing, const PngFile& file);

/// The painter in use; nullptr where there is none.
PngPainter pngPainter();
void setPngPainter(PngPainter painter);

}  // namespace vellumark::ui
