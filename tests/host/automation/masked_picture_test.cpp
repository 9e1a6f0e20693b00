// Pictures for toolbars, taken apart at what is transparent.

#include <gtest/gtest.h>

// clang-format off
#include "ui/win32/system.h"
#include "host/automation/com.h"
// clang-format on

#include <filesystem>
#include <string>
#include <vector>

#include "host/automation/variant.h"
#include "host/picture.h"

namespace vellumark::host {
namespace {

using automation::ComPtr;

/// The pixels of a picture object's bitmap on its top row, as 0xRRGGBB.
std::vector<unsigned> topRow(const ObjectRef& object) {
  if (!object) return {};
  ComPtr<IPicture> picture;
  if (FAILED(automation::wrap(object).As(&picture))) return {};
  OLE_HANDLE handle = 0;
  picture->get_Handle(&handle);
  const auto bitmap = reinterpret_cast<HBITMAP>(static_cast<ULONG_PTR>(handle));
  BITMAP size{};
  GetObjectW(bitmap, sizeof size, &size);
  const HDC memory = CreateCompatibleDC(nullptr);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  std::vector<unsigned> row;
  for (int x = 0; x < size.bmWidth; ++x) {
    const COLORREF color = GetPixel(memory, x, 0);
    row.push_back(static_cast<unsigned>(GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color)));
  }
  SelectObject(memory, before);
  DeleteDC(memory);
  return row;
}

/// Saves a row of pixels, as ARGB, as a PNG file.
void savePixels(const std::string& path, const std::vector<unsigned>& pixels) {
  const Gdiplus::GdiplusStartupInput version1;
  ULONG_PTR token = 0;
  Gdiplus::GdiplusStartup(&token, &version1, nullptr);
  {
    Gdiplus::Bitmap image(static_cast<INT>(pixels.size()), 1, PixelFormat32bppARGB);
    for (std::size_t x = 0; x < pixels.size(); ++x) {
      image.SetPixel(static_cast<INT>(x), 0, Gdiplus::Color(pixels[x]));
    }
    const CLSID png = {0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    image.Save(automation::toWide(path).c_str(), &png, nullptr);
  }
  Gdiplus::GdiplusShutdown(token);
}

TEST(MaskedPictureTest, PixelsShowFromHalfOpaqueOn) {
  OleInitialize(nullptr);
  const std::string path =
      (std::filesystem::temp_directory_path() / ("masked" + std::to_string(GetCurrentProcessId()) + ".png"))
          .string();
  savePixels(path, {0xFF123456, 0x00FFFFFF, 0x7FFF0000, 0x80000000});
  {
    const MaskedPicture taken = loadMaskedPicture(path);
    const std::vector<unsigned> shown = topRow(taken.picture);
    ASSERT_EQ(shown.size(), 4U);
    EXPECT_EQ(shown[0], 0x123456U);
    EXPECT_EQ(shown[1], 0U) << "black where it doesn't show";
    EXPECT_EQ(shown[2], 0U);
    EXPECT_EQ(shown[3], 0x696763U) << "an edge fades into the bar";
    EXPECT_EQ(topRow(taken.mask), (std::vector<unsigned>{0, 0xFFFFFF, 0xFFFFFF, 0}));
    const MaskedPicture none = loadMaskedPicture(path + ".none");
    EXPECT_FALSE(none.picture || none.mask);
  }
  std::filesystem::remove(path);
  OleUninitialize();
}

}  // namespace
}  // namespace vellumark::host
