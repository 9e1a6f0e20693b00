#include "platform/clipboard_drawing.h"

// clang-format off
#include <windows.h>
#include <objidl.h>
#include <shlwapi.h>
#include <gdiplus.h>
// clang-format on

#include <algorithm>
#include <cmath>
#include <vector>

namespace vellumark::platform {
namespace {

/// Logical units to the point.
constexpr double fine = 20;

POINT point(DrawPoint p) {
  return {static_cast<LONG>(std::lround(p.x * fine)), static_cast<LONG>(std::lround(p.y * fine))};
}
COLORREF color(Argb argb) { return RGB(argb >> 16 & 0xFF, argb >> 8 & 0xFF, argb & 0xFF); }
bool isSeen(Argb argb) { return argb >> 24 != 0; }

/// A metafile has one colour for an area; that of a gradient is the one in its middle.
Argb flat(const Brush& brush) {
  return brush.stops.empty() ? brush.color : brush.stops[brush.stops.size() / 2].color;
}

/// GDI+ for as long as pictures are read.
class PictureReader {
 public:
  PictureReader() {
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token_, &input, nullptr);
  }
  ~PictureReader() { Gdiplus::GdiplusShutdown(token_); }
  PictureReader(const PictureReader&) = delete;
  PictureReader& operator=(const PictureReader&) = delete;

 private:
  ULONG_PTR token_ = 0;
};

class MetafileDrawer {
 public:
  explicit MetafileDrawer(HDC target) : target_(target) {}

  void operator()(const Drawing::Fill& fill) const {
    const Argb argb = flat(fill.brush);
    if (!isSeen(argb)) return;
    trace(fill.path);
    SetPolyFillMode(target_, fill.evenOdd ? ALTERNATE : WINDING);
    const HGDIOBJ before = SelectObject(target_, CreateSolidBrush(color(argb)));
    FillPath(target_);
    DeleteObject(SelectObject(target_, before));
  }

  void operator()(const Drawing::Stroke& stroke) const {
    if (!isSeen(stroke.pen.color)) return;
    const Pen& pen = stroke.pen;
    const DWORD cap = pen.cap == Pen::Cap::round    ? PS_ENDCAP_ROUND
                      : pen.cap == Pen::Cap::square ? PS_ENDCAP_SQUARE
                                                    : PS_ENDCAP_FLAT;
    const DWORD join = pen.join == Pen::Join::round   ? PS_JOIN_ROUND
                       : pen.join == Pen::Join::bevel ? PS_JOIN_BEVEL
                                                      : PS_JOIN_MITER;
    std::vector<DWORD> dashes;
    for (const double dash : pen.dashes) {
      dashes.push_back(static_cast<DWORD>(std::max(1L, std::lround(dash * pen.width * fine))));
    }
    const LOGBRUSH brush{BS_SOLID, color(pen.color), 0};
    const auto width = static_cast<DWORD>(std::max(1L, std::lround(pen.width * fine)));
    const DWORD style = PS_GEOMETRIC | cap | join | (dashes.empty() ? PS_SOLID : PS_USERSTYLE);
    HPEN made = ExtCreatePen(style, width, &brush, static_cast<DWORD>(dashes.size()),
                             dashes.empty() ? nullptr : dashes.data());
    trace(stroke.path);
    const HGDIOBJ before = SelectObject(target_, made);
    StrokePath(target_);
    DeleteObject(SelectObject(target_, before));
  }

  void operator()(const Drawing::Picture& picture) const {
    if (!picture.bytes) return;
    const PictureReader reader;
    IStream* stream = SHCreateMemStream(reinterpret_cast<const BYTE*>(picture.bytes->data()),
                                        static_cast<UINT>(picture.bytes->size()));
    if (stream == nullptr) return;
    drawBitmap(picture, stream);
    stream->Release();
  }

 private:
  void trace(const Path& path) const {
    BeginPath(target_);
    for (const Path::Segment& segment : path.segments()) {
      const POINT points[] = {point(segment.points[0]), point(segment.points[1]), point(segment.points[2])};
      switch (segment.step) {
        case Path::Step::move:
          MoveToEx(target_, points[0].x, points[0].y, nullptr);
          break;
        case Path::Step::line:
          LineTo(target_, points[0].x, points[0].y);
          break;
        case Path::Step::curve:
          PolyBezierTo(target_, points, 3);
          break;
        case Path::Step::close:
          CloseFigure(target_);
          break;
      }
    }
    EndPath(target_);
  }

  void drawBitmap(const Drawing::Picture& picture, IStream* stream) const {
    Gdiplus::Bitmap bitmap(stream);
    HBITMAP pixels = nullptr;
    if (bitmap.GetLastStatus() != Gdiplus::Ok ||
        bitmap.GetHBITMAP(Gdiplus::Color(0xFFFFFFFF), &pixels) != Gdiplus::Ok) {
      return;
    }
    const auto width = static_cast<double>(bitmap.GetWidth()),
               height = static_cast<double>(bitmap.GetHeight());
    const auto cut = [](double share, double length) {
      return static_cast<int>(std::lround(share * length));
    };
    const int left = cut(picture.cropLeft, width), top = cut(picture.cropTop, height);
    const int right = cut(1 - picture.cropRight, width), bottom = cut(1 - picture.cropBottom, height);
    const HDC source = CreateCompatibleDC(target_);
    const HGDIOBJ before = SelectObject(source, pixels);
    const int state = SaveDC(target_);
    if (!picture.clip.empty()) {
      trace(picture.clip);
      SelectClipPath(target_, RGN_AND);
    }
    // The unit square is laid out in thousandths.
    constexpr int unit = 1000;
    const Affine map =
        Affine::scaled(fine, fine).after(picture.map.after(Affine::scaled(1.0 / unit, 1.0 / unit)));
    SetGraphicsMode(target_, GM_ADVANCED);
    const auto single = [](double value) { return static_cast<FLOAT>(value); };
    const XFORM form{single(map.xx), single(map.yx), single(map.xy),
                     single(map.yy), single(map.dx), single(map.dy)};
    ModifyWorldTransform(target_, &form, MWT_LEFTMULTIPLY);
    SetStretchBltMode(target_, HALFTONE);
    if (right > left && bottom > top) {
      StretchBlt(target_, 0, 0, unit, unit, source, left, top, right - left, bottom - top, SRCCOPY);
    }
    RestoreDC(target_, state);
    SelectObject(source, before);
    DeleteDC(source);
    DeleteObject(pixels);
  }

  HDC target_;
};

HENHMETAFILE metafileOf(const Drawing& drawing) {
  constexpr double hundredthsOfMillimetre = 2540.0 / 72.0;
  const RECT frame{0, 0, static_cast<LONG>(std::ceil(drawing.width * hundredthsOfMillimetre)),
                   static_cast<LONG>(std::ceil(drawing.height * hundredthsOfMillimetre))};
  const HDC screen = GetDC(nullptr);
  const HDC target = CreateEnhMetaFileW(screen, nullptr, &frame, nullptr);
  // A point is so many of the screen's pixels, whose size the frame goes by.
  const int across = GetDeviceCaps(screen, HORZRES), wide = GetDeviceCaps(screen, HORZSIZE);
  const int along = GetDeviceCaps(screen, VERTRES), high = GetDeviceCaps(screen, VERTSIZE);
  ReleaseDC(nullptr, screen);
  if (target == nullptr) return nullptr;
  constexpr double millimetre = 72.0 / 25.4;
  SetMapMode(target, MM_ANISOTROPIC);
  SetWindowExtEx(target, static_cast<int>(wide * millimetre * fine),
                 static_cast<int>(high * millimetre * fine), nullptr);
  SetViewportExtEx(target, across, along, nullptr);
  const POINT origin = point({drawing.left, drawing.top});
  SetWindowOrgEx(target, origin.x, origin.y, nullptr);
  const MetafileDrawer draw(target);
  for (const Drawing::Command& command : drawing.commands) std::visit(draw, command);
  return CloseEnhMetaFile(target);
}

}  // namespace

/// The picture goes onto the clipboard as a metafile at once.
void offerDrawing(std::function<Drawing()> draw) {
  const HENHMETAFILE metafile = metafileOf(draw());
  if (metafile == nullptr) return;
  if (OpenClipboard(nullptr) == 0) {
    DeleteEnhMetaFile(metafile);
    return;
  }
  EmptyClipboard();
  if (SetClipboardData(CF_ENHMETAFILE, metafile) == nullptr) DeleteEnhMetaFile(metafile);
  CloseClipboard();
}

void withdrawDrawing() {}

}  // namespace vellumark::platform
