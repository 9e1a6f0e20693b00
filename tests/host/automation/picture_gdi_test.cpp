// Pictures from the clipboard through GDI+.

#include "host/picture_gdi.h"

#include <gtest/gtest.h>

// clang-format off
#include <windows.h>
#include <objidl.h>
#include <gdiplus.h>
// clang-format on

#include <algorithm>
#include <filesystem>
#include <thread>

#include "host/automation/variant.h"
#include "host/picture.h"
#include "platform/clipboard_drawing.h"

namespace vellumark::host {
namespace {

using platform::Drawing;

/// 150 by 75 points, which are 200 by 100 pixels on a screen of 96 to the inch: red, with a blue half.
Drawing halves() {
  Drawing drawing{.left = 10, .top = 20, .width = 150, .height = 75};
  platform::Path whole, half;
  whole.rectangle(10, 20, 150, 75);
  half.rectangle(85, 20, 75, 75);
  drawing.commands = {Drawing::Fill{whole, {.color = 0xFFFF0000}},
                      Drawing::Fill{half, {.color = 0xFF0000FF}}};
  return drawing;
}

class PictureGdiTest : public testing::Test {
 protected:
  ~PictureGdiTest() override { std::filesystem::remove(file_); }
  std::int16_t render() { return renderClipboardToPng(160, 120, 0x00FFFFFF, file_.string()); }
  /// The pixels of the file that was made, as ARGB.
  std::vector<std::uint32_t> pixels(const std::vector<std::pair<int, int>>& places) {
    const Gdiplus::GdiplusStartupInput version1;
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartup(&token, &version1, nullptr);
    std::vector<std::uint32_t> found;
    {
      Gdiplus::Bitmap bitmap(file_.wstring().c_str());
      EXPECT_EQ(bitmap.GetWidth(), 160U);
      EXPECT_EQ(bitmap.GetHeight(), 120U);
      for (const auto& [x, y] : places) {
        Gdiplus::Color color;
        bitmap.GetPixel(x, y, &color);
        found.push_back(color.GetValue());
      }
    }
    Gdiplus::GdiplusShutdown(token);
    return found;
  }

  std::filesystem::path file_ =
      std::filesystem::temp_directory_path() / ("picture" + std::to_string(GetCurrentProcessId()) + ".png");
};

TEST_F(PictureGdiTest, TheMetafileIsFittedAndCentred) {
  platform::offerDrawing(halves);
  ASSERT_EQ(render(), 0);
  EXPECT_EQ(pixels({{40, 60}, {120, 60}, {80, 5}, {80, 115}}),
            (std::vector<std::uint32_t>{0xFFFF0000, 0xFF0000FF, 0, 0}));
  EXPECT_EQ(CountClipboardFormats(), 0) << "what was taken is gone";
  EXPECT_TRUE(loadPictureFromFile(file_.string()));
  EXPECT_FALSE(loadPictureFromFile(file_.string() + "x"));
}

TEST_F(PictureGdiTest, StepsThatFailAreTold) {
  platform::offerDrawing(halves);
  EXPECT_EQ(renderClipboardToPng(160, 120, 0, (file_ / "below.png").string()), 29);
  std::thread holder([&] {
    const HWND window = CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    EXPECT_TRUE(OpenClipboard(window));
    std::this_thread::sleep_for(std::chrono::milliseconds(1500));
    CloseClipboard();
    DestroyWindow(window);
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  const DWORD before = GetTickCount();
  EXPECT_EQ(render(), 3);
  EXPECT_GE(GetTickCount() - before, 450U) << "ten attempts";
  holder.join();
}

/// Wine tells nothing, but takes a handle's place in the table for the handle.
std::size_t gdiObjects() {
  if (const DWORD told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) return told;
  std::size_t count = 0;
  for (ULONG_PTR place = 1; place <= 0xFFFF; ++place) {
    if (GetObjectType(reinterpret_cast<HGDIOBJ>(place)) != 0) ++count;
  }
  return count;
}

TEST_F(PictureGdiTest, ManyPicturesLeaveNothingBehind) {
  const auto make = [&] {
    platform::offerDrawing(halves);
    ASSERT_EQ(render(), 0);
  };
  make();  // what is made once stays
  const std::size_t before = gdiObjects();
  EXPECT_GT(before, 0U);
  for (int i = 0; i < 50; ++i) make();
  EXPECT_EQ(gdiObjects(), before);
}

/// A host with a ribbon takes the fourth byte of each point for its cover.
TEST_F(PictureGdiTest, ADrawnPictureCoversEverywhere) {
  ui::Canvas canvas(16, 16);
  canvas.rectangle(0, 0, 16, 16, 0x00FFFFFF);
  canvas.text(2, 2, "DE", 8, 0x00000000, true);
  const ObjectRef picture = pictureOf(canvas);
  ASSERT_TRUE(picture);
  OLE_HANDLE handle = 0;
  automation::ComPtr<IPicture> shown;
  ASSERT_TRUE(SUCCEEDED(automation::wrap(picture).As(&shown)));
  ASSERT_TRUE(SUCCEEDED(shown->get_Handle(&handle)));
  DIBSECTION section = {};
  ASSERT_EQ(GetObjectW(reinterpret_cast<HGDIOBJ>(static_cast<ULONG_PTR>(handle)), sizeof section, &section),
            static_cast<int>(sizeof section));
  const auto* points = static_cast<const std::uint32_t*>(section.dsBm.bmBits);
  EXPECT_TRUE(std::all_of(points, points + 256, [](std::uint32_t point) { return point >> 24 == 0xFF; }));
}

}  // namespace
}  // namespace vellumark::host
