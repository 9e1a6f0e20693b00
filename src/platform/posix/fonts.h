#pragma once
// The system's fonts, as fontconfig finds them and HarfBuzz reads them.

#include <fontconfig/fontconfig.h>
#include <hb.h>

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/text_width.h"

namespace vellumark::platform::posix {

template <auto Release>
struct Releaser {
  template <typename T>
  void operator()(T* object) const {
    Release(object);
  }
};
using Pattern = std::unique_ptr<FcPattern, Releaser<FcPatternDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Releaser<FcFontSetDestroy>>;
using Blob = std::unique_ptr<hb_blob_t, Releaser<hb_blob_destroy>>;
using Face = std::unique_ptr<hb_face_t, Releaser<hb_face_destroy>>;
using Font = std::unique_ptr<hb_font_t, Releaser<hb_font_destroy>>;
using Buffer = std::unique_ptr<hb_buffer_t, Releaser<hb_buffer_destroy>>;

/// The fonts that stand for one face, the best match first, opened when a character needs them.
class Fonts {
 public:
  explicit Fonts(const FontFace& face);

  /// Glyphs of one font that follow each other, with their offsets and advances in the font's units.
  struct Run {
    hb_font_t* font;
    unsigned count;
    const hb_glyph_info_t* glyphs;
    const hb_glyph_position_t* positions;
    int unitsPerEm;
  };
  /// Shapes a text and hands over its runs in order; a run is valid as long as the call. Returns the width
  /// that a system without any font gives it, in ems, where there is none.
  double shape(std::u16string_view text, const std::function<void(const Run&)>& use);

 private:
  std::size_t fontFor(char32_t character) const;
  hb_font_t* open(std::size_t index);
  void shapeRun(std::size_t index, std::u16string_view text, const std::function<void(const Run&)>& use);

  FontSet matches_;
  std::vector<Font> opened_;
  Buffer buffer_{hb_buffer_create()};
};

/// The fonts of a face, found once.
Fonts& fontsOf(const FontFace& face);

}  // namespace vellumark::platform::posix
