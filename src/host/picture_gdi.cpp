#include "host/picture_gdi.h"

#include <algorithm>
#include <cmath>

#include "platform/paths.h"
#include "platform/posix/offered_drawing.h"
#include "ui/png_painter.h"

namespace vellumark::host {
namespace {

/// The steps that can fail here, by the numbers that they have where a picture goes through bitmaps.
enum Status : std::int16_t { done = 0, noPainter = 1, noPicture = 4, notSaved = 29 };

constexpr double pixelsPerPoint = 96.0 / 72.0;

std::int32_t pixels(double points) {
  constexpr double most = 1'000'000;
  return static_cast<std::int32_t>(std::clamp(std::ceil(points * pixelsPerPoint), 1.0, most));
}

}  // namespace

/// The drawing goes straight to the pixels of its place, so that nothing is scaled afterwards.
std::int16_t renderClipboardToPng(std::int16_t width, std::int16_t height, std::uint32_t colour,
                                  const std::string& path) {
  const ui::PngPainter paint = ui::pngPainter();
  if (paint == nullptr) return noPainter;
  const auto draw = platform::posix::takeOfferedDrawing();
  if (!draw) return noPicture;
  const platform::Drawing drawing = draw();
  std::int32_t left = 0, top = 0, fittedWidth = 0, fittedHeight = 0;
  fitRect(pixels(drawing.width), pixels(drawing.height), width, height, left, top, fittedWidth, fittedHeight,
          false);
  const double shareX = fittedWidth / std::max(drawing.width, 1e-3);
  const double shareY = fittedHeight / std::max(drawing.height, 1e-3);
  using platform::Affine;
  const ui::PngFile file{
      width, height,
      Affine::moved(left, top).after(
          Affine::scaled(shareX, shareY).after(Affine::moved(-drawing.left, -drawing.top))),
      colour, platform::toSystem(path)};
  return paint(drawing, file) ? done : notSaved;
}

}  // namespace vellumark::host
