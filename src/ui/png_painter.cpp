#include "ui/png_painter.h"

namespace vellumark::ui {
namespace {

PngPainter current = nullptr;

}  // namespace

PngPainter pngPainter() { return current; }
void setPngPainter(PngPainter painter) { current = painter; }

}  // namespace vellumark::ui
