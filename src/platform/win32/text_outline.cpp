#include "platform/text_outline.h"

#include <vector>

#include "platform/win32/drawing_font.h"

namespace vellumark::platform {

/// The letters are drawn into a path of a device context, which is then read.
Path textOutline(const FontFace& face, std::u16string_view text) {
  Path path;
  const win32::DrawingFont font(face);
  const HDC context = font.context();
  SetBkMode(context, TRANSPARENT);
  SetTextAlign(context, TA_BASELINE | TA_LEFT);
  BeginPath(context);
  TextOutW(context, 0, 0, reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()));
  EndPath(context);
  if (const int count = ::GetPath(context, nullptr, nullptr, 0); count > 0) {
    std::vector<POINT> points(static_cast<std::size_t>(count));
    std::vector<BYTE> kinds(points.size());
    ::GetPath(context, points.data(), kinds.data(), count);
    const auto x = [&](std::size_t i) { return static_cast<double>(points[i].x) / win32::DrawingFont::em; };
    const auto y = [&](std::size_t i) { return static_cast<double>(points[i].y) / win32::DrawingFont::em; };
    for (std::size_t i = 0; i < points.size(); ++i) {
      const int kind = kinds[i] & ~PT_CLOSEFIGURE;
      if (kind == PT_MOVETO) path.moveTo(x(i), y(i));
      if (kind == PT_LINETO) path.lineTo(x(i), y(i));
      if (kind == PT_BEZIERTO && i + 2 < points.size()) {
        path.curveTo(x(i), y(i), x(i + 1), y(i + 1), x(i + 2), y(i + 2));
        i += 2;
      }
      if ((kinds[i] & PT_CLOSEFIGURE) != 0) path.close();
    }
  }
  return path;
}

}  // namespace vellumark::platform
