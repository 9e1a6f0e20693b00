#include "ui/win32/font_measurer.h"

#include <algorithm>

#include "ui/win32/conversions.h"

namespace vellumark::ui::win32 {

FontMeasurer::FontMeasurer(Resources& resources, double zoom)
    : resources_(resources), zoom_(zoom), screen_(CreateCompatibleDC(nullptr)) {}

FontMeasurer::~FontMeasurer() { DeleteDC(screen_); }

Size FontMeasurer::text(std::string_view text, double scale, bool bold, int wrapWidth) const {
  SelectObject(screen_, resources_.font(scale * zoom_, bold));
  const std::wstring wide = toWide(text);
  const auto measure = [&](LONG width, UINT how) {
    RECT area = {0, 0, width, 0};
    DrawTextW(screen_, wide.c_str(), static_cast<int>(wide.size()), &area,
              DT_CALCRECT | DT_NOPREFIX | DT_EXPANDTABS | how);
    return area;
  };
  RECT area = measure(0, 0);
  if (wrapWidth > 0 && area.right > wrapWidth) area = measure(wrapWidth, DT_WORDBREAK);
  TEXTMETRICW metrics = {};
  GetTextMetricsW(screen_, &metrics);
  // Glyphs that lean out of their advance or come from another font can take more than is measured.
  const int spare = 2 + static_cast<int>(area.right) / 16;
  return {static_cast<int>(area.right) + spare, static_cast<int>(std::max(area.bottom, metrics.tmHeight))};
}

/// The average over the alphabet, as the system counts its dialog units.
Size FontMeasurer::character() const {
  SelectObject(screen_, resources_.font(zoom_, false));
  constexpr wchar_t letters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  constexpr int count = 52;
  SIZE size = {};
  GetTextExtentPoint32W(screen_, letters, count, &size);
  return {static_cast<int>((size.cx + count / 2) / count), static_cast<int>(size.cy)};
}

}  // namespace vellumark::ui::win32
