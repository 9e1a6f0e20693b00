#include "host/picture.h"

#include <algorithm>
#include <cstdint>

// The drawing engine's headers need what com.h takes away.
// clang-format off
#include "ui/win32/system.h"
#include "ui/win32/canvas_painter.h"
#include "host/automation/com.h"
#include "host/automation/served_object.h"
// clang-format on

namespace vellumark::host {
namespace {

using automation::ComPtr;

/// The host's picture object of a bitmap, which it then owns.
ObjectRef bitmapToPicture(HBITMAP bitmap) {
  PICTDESC description{};
  description.cbSizeofstruct = sizeof description;
  description.picType = PICTYPE_BITMAP;
  description.bmp.hbitmap = bitmap;
  ComPtr<IDispatch> picture;
  if (FAILED(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE,
                                      reinterpret_cast<void**>(picture.GetAddressOf())))) {
    DeleteObject(bitmap);
    return nullptr;
  }
  return automation::unwrap(picture.Get());
}

}  // namespace

ObjectRef loadPictureFromFile(const std::string& path) {
  const ui::win32::DrawingEngine drawing;
  HBITMAP bitmap = nullptr;
  {
    Gdiplus::Bitmap image(automation::toWide(path).c_str());
    if (image.GetLastStatus() != Gdiplus::Ok) return nullptr;
    if (image.GetHBITMAP(Gdiplus::Color(0), &bitmap) != Gdiplus::Ok) return nullptr;
  }
  return bitmapToPicture(bitmap);
}

/// Old bars paint a picture over what its mask left standing, so it is black where it doesn't show.
MaskedPicture loadMaskedPicture(const std::string& path) {
  const ui::win32::DrawingEngine drawing;
  HBITMAP pictureBitmap = nullptr, maskBitmap = nullptr;
  {
    Gdiplus::Bitmap image(automation::toWide(path).c_str());
    if (image.GetLastStatus() != Gdiplus::Ok) return {};
    const INT width = static_cast<INT>(image.GetWidth()), height = static_cast<INT>(image.GetHeight());
    Gdiplus::Bitmap picture(width, height, PixelFormat24bppRGB), mask(width, height, PixelFormat24bppRGB);
    constexpr BYTE half = 128, opaque = 255;
    constexpr Gdiplus::ARGB face = 0xD4D0C8;  // of the bars, which edges fade into
    for (INT y = 0; y < height; ++y) {
      for (INT x = 0; x < width; ++x) {
        Gdiplus::Color pixel;
        image.GetPixel(x, y, &pixel);
        const bool shows = pixel.GetA() >= half;
        const auto faded = [&](BYTE color, int shift) {
          const int background = static_cast<int>(face >> shift & 0xFF);
          return static_cast<BYTE>((color * pixel.GetA() + background * (opaque - pixel.GetA())) / opaque);
        };
        picture.SetPixel(
            x, y,
            shows ? Gdiplus::Color(faded(pixel.GetR(), 16), faded(pixel.GetG(), 8), faded(pixel.GetB(), 0))
                  : Gdiplus::Color(0, 0, 0));
        mask.SetPixel(x, y, shows ? Gdiplus::Color(0, 0, 0) : Gdiplus::Color(opaque, opaque, opaque));
      }
    }
    picture.GetHBITMAP(Gdiplus::Color(0, 0, 0), &pictureBitmap);
    mask.GetHBITMAP(Gdiplus::Color(0, 0, 0), &maskBitmap);
  }
  if (pictureBitmap == nullptr || maskBitmap == nullptr) {
    DeleteObject(pictureBitmap);
    DeleteObject(maskBitmap);
    return {};
  }
  return {bitmapToPicture(pictureBitmap), bitmapToPicture(maskBitmap)};
}

/// A host with a ribbon takes the fourth byte of a point for its cover. Only some ways of drawing set it, so
/// all points are made to cover in the end.
ObjectRef pictureOf(const ui::Canvas& canvas) {
  BITMAPINFO form{};
  form.bmiHeader.biSize = sizeof form.bmiHeader;
  form.bmiHeader.biWidth = canvas.width();
  form.bmiHeader.biHeight = canvas.height();
  form.bmiHeader.biPlanes = 1;
  form.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, &form, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (bitmap == nullptr) return nullptr;
  const HDC memory = CreateCompatibleDC(nullptr);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  {
    ui::win32::Resources resources;
    ui::win32::paintCanvas(canvas, memory, resources);
  }
  GdiFlush();
  auto* points = static_cast<std::uint32_t*>(bits);
  std::for_each_n(points, canvas.width() * canvas.height(),
                  [](std::uint32_t& point) { point |= 0xFF000000; });
  SelectObject(memory, before);
  DeleteDC(memory);
  return bitmapToPicture(bitmap);
}

}  // namespace vellumark::host
