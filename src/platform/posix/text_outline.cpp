#include "platform/text_outline.h"

#include <memory>

#include "platform/posix/fonts.h"

namespace vellumark::platform {
namespace {

/// Where the letters go: the font's units, y growing upward, are brought to ems.
struct Letters {
  Path path;
  double x = 0, y = 0;  ///< of the glyph, in ems
  double unit = 1;

  double toX(float value) const { return x + static_cast<double>(value) * unit; }
  double toY(float value) const { return y - static_cast<double>(value) * unit; }
};

Letters& lettersOf(void* data) { return *static_cast<Letters*>(data); }

void moveTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*) {
  Letters& to = lettersOf(data);
  to.path.moveTo(to.toX(x), to.toY(y));
}
void lineTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*) {
  Letters& to = lettersOf(data);
  to.path.lineTo(to.toX(x), to.toY(y));
}
void quadTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x1, float y1, float x, float y, void*) {
  Letters& to = lettersOf(data);
  to.path.quadTo(to.toX(x1), to.toY(y1), to.toX(x), to.toY(y));
}
void curveTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x1, float y1, float x2, float y2, float x,
             float y, void*) {
  Letters& to = lettersOf(data);
  to.path.curveTo(to.toX(x1), to.toY(y1), to.toX(x2), to.toY(y2), to.toX(x), to.toY(y));
}
void close(hb_draw_funcs_t*, void* data, hb_draw_state_t*, void*) { lettersOf(data).path.close(); }

hb_draw_funcs_t* drawing() {
  static const std::unique_ptr<hb_draw_funcs_t, posix::Releaser<hb_draw_funcs_destroy>> functions = [] {
    hb_draw_funcs_t* made = hb_draw_funcs_create();
    hb_draw_funcs_set_move_to_func(made, moveTo, nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(made, lineTo, nullptr, nullptr);
    hb_draw_funcs_set_quadratic_to_func(made, quadTo, nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(made, curveTo, nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(made, close, nullptr, nullptr);
    hb_draw_funcs_make_immutable(made);
    return std::unique_ptr<hb_draw_funcs_t, posix::Releaser<hb_draw_funcs_destroy>>(made);
  }();
  return functions.get();
}

}  // namespace

Path textOutline(const FontFace& face, std::u16string_view text) {
  Letters to;
  double x = 0;
  posix::fontsOf(face).shape(text, [&](const posix::Fonts::Run& run) {
    to.unit = 1.0 / run.unitsPerEm;
    for (unsigned i = 0; i < run.count; ++i) {
      const hb_glyph_position_t& place = run.positions[i];
      to.x = x + place.x_offset * to.unit;
      to.y = -place.y_offset * to.unit;
      hb_font_get_glyph_shape(run.font, run.glyphs[i].codepoint, drawing(), &to);
      x += place.x_advance * to.unit;
    }
  });
  return std::move(to.path);
}

}  // namespace vellumark::platform
