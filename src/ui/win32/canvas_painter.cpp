#include "ui/win32/canvas_painter.h"

#include <algorithm>
#include <cmath>

#include "ui/win32/conversions.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {
namespace {

using Gdiplus::REAL;

Gdiplus::Color toDrawing(Color color) {
  return {255, static_cast<BYTE>(redOf(color)), static_cast<BYTE>(greenOf(color)),
          static_cast<BYTE>(blueOf(color))};
}

REAL real(double value) { return static_cast<REAL>(value); }

/// Draws one command after the other. A canvas has 96 pixels to the inch and as many of the screen as it
/// takes to look the same everywhere.
class CanvasPainter {
 public:
  CanvasPainter(HDC target, Resources& resources)
      : target_(target), resources_(resources), scale_(resources.canvasScale()), drawing_(target) {
    drawing_.ScaleTransform(real(scale_), real(scale_));
    drawing_.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    drawing_.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  }

  void operator()(const Canvas::Rectangle& box) {
    const Gdiplus::SolidBrush brush(toDrawing(box.fill));
    smooth(false);
    drawing_.FillRectangle(&brush, real(box.x), real(box.y), real(box.width), real(box.height));
  }

  void operator()(const Canvas::Ellipse& ellipse) {
    const Gdiplus::SolidBrush brush(toDrawing(ellipse.fill));
    smooth(true);
    drawing_.FillEllipse(&brush, real(ellipse.x), real(ellipse.y), real(ellipse.width), real(ellipse.height));
  }

  void operator()(const Canvas::Line& line) {
    // Upright and level lines fill whole pixels instead of two halves.
    const bool slanted = line.x1 != line.x2 && line.y1 != line.y2;
    smooth(slanted);
    const double shift = slanted ? 0 : 0.5;
    const Gdiplus::Pen pen(toDrawing(line.color), real(line.width));
    drawing_.DrawLine(&pen, real(line.x1 + (line.x1 == line.x2 ? shift : 0)),
                      real(line.y1 + (line.y1 == line.y2 ? shift : 0)),
                      real(line.x2 + (line.x1 == line.x2 ? shift : 0)),
                      real(line.y2 + (line.y1 == line.y2 ? shift : 0)));
  }

  void operator()(const Canvas::Text& text) {
    drawing_.Flush(Gdiplus::FlushIntentionSync);
    LOGFONTW wanted = {};
    GetObjectW(resources_.font(1, text.bold), sizeof wanted, &wanted);
    wanted.lfHeight = -std::max(1L, std::lround(text.size * 96 / 72 * scale_));
    HFONT font = CreateFontIndirectW(&wanted);
    const HGDIOBJ before = SelectObject(target_, font);
    SetBkMode(target_, TRANSPARENT);
    SetTextColor(target_, text.color);
    const std::wstring wide = toWide(text.text);
    TextOutW(target_, toScreen(x_ + text.x), toScreen(y_ + text.y), wide.c_str(),
             static_cast<int>(wide.size()));
    SelectObject(target_, before);
    DeleteObject(font);
  }

  void operator()(const Canvas::Image& image) {
    Gdiplus::Bitmap* picture = resources_.picture(image.path);
    if (!picture) return;
    drawing_.DrawImage(picture, real(image.x), real(image.y), real(image.width), real(image.height));
  }

  void operator()(const Canvas::Pixels& pixels) {
    if (pixels.rows() == 0) return;
    Gdiplus::Bitmap picture(pixels.columns, pixels.rows(), PixelFormat32bppRGB);
    for (int i = 0; i < pixels.columns * pixels.rows(); ++i) {
      picture.SetPixel(i % pixels.columns, i / pixels.columns,
                       toDrawing(pixels.colors[static_cast<std::size_t>(i)]));
    }
    const Gdiplus::InterpolationMode before = drawing_.GetInterpolationMode();
    drawing_.SetInterpolationMode(Gdiplus::InterpolationModeNearestNeighbor);
    drawing_.DrawImage(&picture, real(pixels.x), real(pixels.y), real(pixels.width), real(pixels.height));
    drawing_.SetInterpolationMode(before);
  }

  void operator()(const Canvas::Copy& copy) {
    const Gdiplus::GraphicsState state = drawing_.Save();
    const int device = SaveDC(target_);
    x_ += copy.x;
    y_ += copy.y;
    drawing_.TranslateTransform(real(copy.x), real(copy.y));
    draw(*copy.source);
    x_ -= copy.x;
    y_ -= copy.y;
    RestoreDC(target_, device);
    drawing_.Restore(state);
  }

  void draw(const Canvas& canvas) {
    drawing_.SetClip(Gdiplus::RectF(0, 0, real(canvas.width()), real(canvas.height())),
                     Gdiplus::CombineModeIntersect);
    IntersectClipRect(target_, toScreen(x_), toScreen(y_), toScreen(x_ + canvas.width()),
                      toScreen(y_ + canvas.height()));
    for (const Canvas::Command& command : canvas.commands()) std::visit(*this, command);
  }

 private:
  int toScreen(double place) const { return static_cast<int>(std::lround(place * scale_)); }

  void smooth(bool on) {
    drawing_.SetSmoothingMode(on ? Gdiplus::SmoothingModeAntiAlias : Gdiplus::SmoothingModeNone);
  }

  HDC target_;
  Resources& resources_;
  double scale_;
  double x_ = 0;  ///< where the canvas lies that is being drawn, in its own pixels
  double y_ = 0;
  Gdiplus::Graphics drawing_;
};

}  // namespace

void paintCanvas(const Canvas& canvas, HDC target, Resources& resources) {
  resources.startDrawing();
  const int state = SaveDC(target);
  CanvasPainter(target, resources).draw(canvas);
  RestoreDC(target, state);
}

HBITMAP loadPicture(const std::string& path, int side, Resources& resources) {
  resources.startDrawing();
  Gdiplus::Image picture(toWide(path).c_str());
  if (picture.GetLastStatus() != Gdiplus::Ok) return nullptr;
  Gdiplus::Bitmap bitmap(side, side, PixelFormat32bppARGB);
  Gdiplus::Graphics drawing(&bitmap);
  const Gdiplus::Color ground = toDrawing(GetSysColor(COLOR_WINDOW));
  drawing.Clear(ground);
  drawing.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
  drawing.DrawImage(&picture, 0, 0, side, side);
  HBITMAP made = nullptr;
  bitmap.GetHBITMAP(ground, &made);
  return made;
}

}  // namespace vellumark::ui::win32
