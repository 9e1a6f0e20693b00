#include "platform/text_width.h"

#include <map>
#include <unordered_map>

#include "platform/posix/fonts.h"

namespace vellumark::platform {
namespace {

double measure(const FontFace& face, std::u16string_view text) {
  double ems = 0;
  const double fallback = posix::fontsOf(face).shape(text, [&](const posix::Fonts::Run& run) {
    double units = 0;
    for (unsigned i = 0; i < run.count; ++i) units += run.positions[i].x_advance;
    ems += units / run.unitsPerEm;
  });
  return ems + fallback;
}

/// Slides say the same words again and again; each is shaped once.
using Widths = std::unordered_map<std::u16string, double>;
constexpr std::size_t mostWidths = 20'000;

}  // namespace

double textWidth(const FontFace& face, std::u16string_view text) {
  static std::map<FontFace, Widths> faces;
  Widths& widths = faces[face];
  std::u16string key(text);
  if (const auto known = widths.find(key); known != widths.end()) return known->second;
  if (widths.size() >= mostWidths) widths.clear();
  return widths.emplace(std::move(key), measure(face, text)).first->second;
}

}  // namespace vellumark::platform
