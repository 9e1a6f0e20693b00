#include "platform/text_width.h"

#include <map>
#include <unordered_map>

#include "platform/win32/drawing_font.h"

namespace vellumark::platform {
namespace {

struct Measured {
  explicit Measured(const FontFace& face) : font(face) {}

  double width(std::u16string_view text) const {
    SIZE size{};
    GetTextExtentPoint32W(font.context(), reinterpret_cast<const wchar_t*>(text.data()),
                          static_cast<int>(text.size()), &size);
    return static_cast<double>(size.cx) / win32::DrawingFont::em;
  }

  win32::DrawingFont font;
  std::unordered_map<std::u16string, double> widths;
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
