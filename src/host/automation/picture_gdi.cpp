#include "host/picture_gdi.h"

#include <algorithm>
#include <vector>

// The drawing engine's headers need what com.h takes away.
// clang-format off
#include "ui/win32/system.h"
#include "host/automation/com.h"
// clang-format on
#include "base/text.h"
#include "platform/paths.h"

namespace vellumark::host {
namespace {

using namespace Gdiplus::DllExports;

constexpr std::int16_t clipboardHeld = 3;
constexpr int attempts = 10;
constexpr DWORD pauseMilliseconds = 50;

/// Another program may hold the clipboard for a moment.
bool waitForClipboard() {
  for (int attempt = 0; attempt < attempts; ++attempt) {
    if (OpenClipboard(nullptr) != 0) {
      CloseClipboard();
      return true;
    }
    Sleep(pauseMilliseconds);
  }
  return false;
}

/// The metafile on the clipboard as a bitmap of its natural size, on white as in a picture box; the clipboard
/// is empty afterwards. A bitmap of one pixel where there is no metafile.
HBITMAP takeMetafile() {
  HBITMAP bitmap = nullptr;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  RECT box{0, 0, 1, 1};
  HENHMETAFILE metafile = nullptr;
  const bool isOpen = OpenClipboard(nullptr) != 0;
  if (isOpen) metafile = static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE));
  if (metafile != nullptr) {
    ENHMETAHEADER header{};
    GetEnhMetaFileHeader(metafile, sizeof header, &header);
    const auto pixels = [&](LONG hundredths, int dotsPerInch) {
      return std::clamp(MulDiv(hundredths, dotsPerInch, 2540), 1, 10'000);
    };
    box.right = pixels(header.rclFrame.right - header.rclFrame.left, GetDeviceCaps(screen, LOGPIXELSX));
    box.bottom = pixels(header.rclFrame.bottom - header.rclFrame.top, GetDeviceCaps(screen, LOGPIXELSY));
  }
  bitmap = CreateCompatibleBitmap(screen, box.right, box.bottom);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  FillRect(memory, &box, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  if (metafile != nullptr) PlayEnhMetaFile(memory, metafile, &box);
  SelectObject(memory, before);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  if (isOpen) {
    EmptyClipboard();
    CloseClipboard();
  }
  return bitmap;
}

/// The encoder for a MIME type: its place from 1, or -1 where there is none.
int getEncoderClsid(const std::string& mimeType, CLSID& clsid) {
  UINT count = 0, size = 0;
  GdipGetImageEncodersSize(&count, &size);
  if (count == 0) return -1;
  std::vector<std::byte> buffer(size);
  auto* encoders = reinterpret_cast<Gdiplus::ImageCodecInfo*>(buffer.data());
  GdipGetImageEncoders(count, size, encoders);
  for (UINT i = 0; i < count; ++i) {
    if (!base::equalsIgnoreCase(automation::fromWide(encoders[i].MimeType), mimeType)) continue;
    clsid = encoders[i].Clsid;
    return static_cast<int>(i) + 1;
  }
  return -1;
}

}  // namespace

/// Each step leaves at once with its own number where it fails; what was made before stays.
std::int16_t renderClipboardToPng(std::int16_t width, std::int16_t height, std::uint32_t colour,
                                  const std::string& path) {
  std::int16_t status = 0;
  const auto failed = [&](std::int16_t step, Gdiplus::GpStatus result) {
    if (result == Gdiplus::Ok) return false;
    status = step;
    return true;
  };
  const Gdiplus::GdiplusStartupInput version1;
  ULONG_PTR token = 0;
  if (failed(1, Gdiplus::GdiplusStartup(&token, &version1, nullptr))) return status;
  Gdiplus::GpGraphics* screen = nullptr;
  const HDC screenContext = GetWindowDC(nullptr);
  if (failed(2, GdipCreateFromHDC(screenContext, &screen))) return status;
  if (!waitForClipboard()) return clipboardHeld;
  const HBITMAP taken = takeMetafile();
  Gdiplus::GpBitmap* source = nullptr;
  if (failed(4, GdipCreateBitmapFromHBITMAP(taken, nullptr, &source))) return status;
  UINT sourceHeight = 0, sourceWidth = 0;
  if (failed(5, GdipGetImageHeight(source, &sourceHeight))) return status;
  if (failed(6, GdipGetImageWidth(source, &sourceWidth))) return status;
  std::int32_t left = 0, top = 0, fittedWidth = 0, fittedHeight = 0;
  fitRect(static_cast<std::int32_t>(sourceWidth), static_cast<std::int32_t>(sourceHeight), width, height,
          left, top, fittedWidth, fittedHeight, false);
  // Without a target the caller is told of no failure, and no file is written.
  Gdiplus::GpBitmap* target = nullptr;
  if (GdipCreateBitmapFromGraphics(width, height, screen, &target) != Gdiplus::Ok) return 0;
  if (failed(7, GdipDeleteGraphics(screen))) return status;
  ReleaseDC(nullptr, screenContext);
  Gdiplus::GpGraphics* drawing = nullptr;
  if (failed(8, GdipGetImageGraphicsContext(target, &drawing))) return status;
  if (failed(9, GdipSetSmoothingMode(drawing, Gdiplus::SmoothingModeHighQuality))) return status;
  if (failed(10, GdipSetInterpolationMode(drawing, Gdiplus::InterpolationModeHighQualityBicubic)))
    return status;
  if (failed(11, GdipDrawImageRectI(drawing, source, left, top, fittedWidth, fittedHeight))) return status;

  // The bands beside the picture; all but the first reach past the edges.
  const Gdiplus::GpRect bands[] = {{0, 0, left, height},
                                   {left + fittedWidth, 0, width, height},
                                   {left, 0, left + fittedWidth, top},
                                   {left, top + fittedHeight, left + fittedWidth, height}};
  Gdiplus::GpRegion* regions[4] = {};
  for (std::int16_t i = 0; i < 4; ++i) {
    if (failed(static_cast<std::int16_t>(12 + i), GdipCreateRegionRectI(&bands[i], &regions[i])))
      return status;
  }
  Gdiplus::GpSolidFill* ground = nullptr;
  if (failed(16, GdipCreateSolidFill(colour, &ground))) return status;
  for (std::int16_t i = 0; i < 4; ++i) {
    if (failed(static_cast<std::int16_t>(17 + i), GdipFillRegion(drawing, ground, regions[i]))) return status;
  }
  if (failed(21, GdipDeleteBrush(ground))) return status;
  for (std::int16_t i = 0; i < 4; ++i) {
    if (failed(static_cast<std::int16_t>(22 + i), GdipDeleteRegion(regions[i]))) return status;
  }
  CLSID png{};
  if (getEncoderClsid("image/png", png) == -1) return 26;
  if (failed(27, GdipDisposeImage(source))) return status;
  if (failed(28, GdipDeleteGraphics(drawing))) return status;
  const std::wstring file = automation::toWide(platform::toSystem(path));
  if (failed(29, GdipSaveImageToFile(target, file.c_str(), &png, nullptr))) return status;
  if (failed(30, GdipDisposeImage(target))) return status;
  DeleteObject(taken);
  if (token != 0) Gdiplus::GdiplusShutdown(token);
  return 0;
}

}  // namespace vellumark::host
