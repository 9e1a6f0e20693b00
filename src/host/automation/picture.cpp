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
