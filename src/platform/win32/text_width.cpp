#include "platform/text_width.h"

#include <windows.h>

#include <map>
#include <unordered_map>

#include "platform/win32/wide.h"

namespace vellumark::platform {
namespace {

/// Fonts are measured at this many pixels to the em, where hints no longer round.
constexpr int em = 2048;

/// A font in a device context of its own.
class Measured {
 public:
  explicit Measured(const FontFace& face) : context_(CreateCompatibleDC(nullptr)) {
    font_ = CreateFontW(-em, 0, 0, 0, face.bold ? FW_BOLD : FW_NORMAL, face.italic, FALSE, FALSE,
                        DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                        DEFAULT_PITCH | FF_DONTCARE, win32::toWide(face.family).c_str());
    before_ = SelectObject(context_, font_);
  }
  ~Measured() {
    SelectObject(context_, before_);
    DeleteObject(font_);
    DeleteDC(context_);
  }
  Measured(const Measured&) = delete;
  Measured& operator=(const Measured&) = delete;

  double width(std::u16string_view text) const {
    SIZE size{};
    GetTextExtentPoint32W(context_, reinterpret_cast<const wchar_t*>(text.data()),
                          static_cast<int>(text.size()), &size);
    return static_cast<double>(size.cx) / em;
  }

  std::unordered_map<std::u16string, double> widths;

 private:
  HDC context_;
  HFONT font_ = nullptr;
  HGDIOBJ before_ = nullptr;
};
constexpr std::size_t mostWidths = 20'000;

}  // namespace

double textWidth(const FontFace& face, std::u16string_view text) {
  static std::map<FontFace, Measured> faces;
  Measured& measured = faces.try_emplace(face, face).first->second;
  std::u16string key(text);
  if (const auto known = measured.widths.find(key); known != measured.widths.end()) return known->second;
  if (measured.widths.size() >= mostWidths) measured.widths.clear();
  return measured.widths.emplace(std::move(key), measured.width(text)).first->second;
}

}  // namespace vellumark::platform
