#include "host/picture.h"

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

/// GDI+ lives as long as the call.
ObjectRef loadPictureFromFile(const std::string& path) {
  ui::win32::Resources resources;
  resources.startDrawing();
  HBITMAP bitmap = nullptr;
  {
    Gdiplus::Bitmap image(automation::toWide(path).c_str());
    if (image.GetLastStatus() != Gdiplus::Ok) return nullptr;
    if (image.GetHBITMAP(Gdiplus::Color(0), &bitmap) != Gdiplus::Ok) return nullptr;
  }
  return bitmapToPicture(bitmap);
}

ObjectRef pictureOf(const ui::Canvas& canvas) {
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, canvas.width(), canvas.height());
  ReleaseDC(nullptr, screen);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  {
    ui::win32::Resources resources;
    ui::win32::paintCanvas(canvas, memory, resources);
  }
  SelectObject(memory, before);
  DeleteDC(memory);
  return bitmapToPicture(bitmap);
}

}  // namespace vellumark::host
