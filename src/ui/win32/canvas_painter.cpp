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

/// Draws one command after the other. Points are pixels of 96 to the inch, so that a canvas looks the same on
/// every screen.
class CanvasPainter {
 public:
  CanvasPainter(HDC target, Resources& resources) : target_(target), resources_(resources), drawing_(target) {
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
    wanted.lfHeight = -std::max(1L, std::lround(text.size * 96 / 72));
    HFONT font = CreateFontIndirectW(&wanted);
    const HGDIOBJ before = SelectObject(target_, font);
    SetBkMode(target_, TRANSPARENT);
    SetTextColor(target_, text.color);
    const std::wstring wide = toWide(text.text);
    TextOutW(target_, static_cast<int>(std::lround(text.x)), static_cast<int>(std::lround(text.y)),
             wide.c_str(), static_cast<int>(wide.size()));
    SelectObject(target_, before);
    DeleteObject(font);
  }

  void operator()(const Canvas::Image& image) {
    Gdiplus::Image picture(toWide(image.path).c_str());
    if (picture.GetLastStatus() != Gdiplus::Ok) return;
    drawing_.DrawImage(&picture, real(image.x), real(image.y), real(image.width), real(image.height));
  }

 private:
  void smooth(bool on) {
    drawing_.SetSmoothingMode(on ? Gdiplus::SmoothingModeAntiAlias : Gdiplus::SmoothingModeNone);
  }

  HDC target_;
  Resources& resources_;
  Gdiplus::Graphics drawing_;
};

}  // namespace

void paintCanvas(const Canvas& canvas, HDC target, Resources& resources) {
  resources.startDrawing();
  const int state = SaveDC(target);
  IntersectClipRect(target, 0, 0, canvas.width(), canvas.height());
  {
    CanvasPainter painter(target, resources);
    for (const Canvas::Command& command : canvas.commands()) std::visit(painter, command);
  }
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
