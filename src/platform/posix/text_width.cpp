#include "platform/text_width.h"

#include <fontconfig/fontconfig.h>
#include <hb-ot.h>
#include <hb.h>

#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

namespace vellumark::platform {
namespace {

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
  explicit Fonts(const FontFace& face) {
    const Pattern wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(face.family.c_str()));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, face.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(wanted.get(), FC_SLANT, face.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    matches_.reset(FcFontSort(nullptr, wanted.get(), FcTrue, nullptr, &result));
    opened_.resize(matches_ ? static_cast<std::size_t>(matches_->nfont) : 0);
  }

  double width(std::u16string_view text) {
    if (opened_.empty()) return 0.5 * static_cast<double>(text.size());  // a system without any font
    double total = 0;
    std::size_t start = 0;
    std::size_t font = 0;
    for (std::size_t place = 0; place < text.size();) {
      const std::size_t length = isPair(text, place) ? 2 : 1;
      const std::size_t wanted = fontFor(character(text, place));
      if (wanted != font) {
        total += shaped(font, text.substr(start, place - start));
        start = place;
        font = wanted;
      }
      place += length;
    }
    return total + shaped(font, text.substr(start));
  }

 private:
  static bool isPair(std::u16string_view text, std::size_t place) {
    return text[place] >= 0xD800 && text[place] <= 0xDBFF && place + 1 < text.size();
  }
  static char32_t character(std::u16string_view text, std::size_t place) {
    if (!isPair(text, place)) return text[place];
    return 0x10000 + ((static_cast<char32_t>(text[place]) - 0xD800) << 10) + (text[place + 1] - 0xDC00);
  }

  /// The first font that has the character; the first one of all where none has it, and for blanks.
  std::size_t fontFor(char32_t character) const {
    if (character <= U' ') return 0;
    for (int i = 0; i < matches_->nfont; ++i) {
      FcCharSet* characters = nullptr;
      if (FcPatternGetCharSet(matches_->fonts[i], FC_CHARSET, 0, &characters) == FcResultMatch &&
          FcCharSetHasChar(characters, character)) {
        return static_cast<std::size_t>(i);
      }
    }
    return 0;
  }

  hb_font_t* open(std::size_t index) {
    Font& font = opened_[index];
    if (!font) {
      FcChar8* file = nullptr;
      int number = 0;
      FcPatternGetString(matches_->fonts[index], FC_FILE, 0, &file);
      FcPatternGetInteger(matches_->fonts[index], FC_INDEX, 0, &number);
      const Blob blob(hb_blob_create_from_file(reinterpret_cast<const char*>(file)));
      const Face face(hb_face_create(blob.get(), static_cast<unsigned>(number)));
      font.reset(hb_font_create(face.get()));
    }
    return font.get();
  }

  double shaped(std::size_t index, std::u16string_view text) {
    if (text.empty()) return 0;
    hb_font_t* font = open(index);
    hb_buffer_t* buffer = buffer_.get();
    hb_buffer_clear_contents(buffer);
    const int length = static_cast<int>(text.size());
    hb_buffer_add_utf16(buffer, reinterpret_cast<const std::uint16_t*>(text.data()), length, 0, length);
    hb_buffer_guess_segment_properties(buffer);
    hb_shape(font, buffer, nullptr, 0);
    unsigned count = 0;
    const hb_glyph_position_t* glyphs = hb_buffer_get_glyph_positions(buffer, &count);
    double units = 0;
    for (unsigned i = 0; i < count; ++i) units += glyphs[i].x_advance;
    int scale = 0;
    hb_font_get_scale(font, &scale, nullptr);
    return scale > 0 ? units / scale : 0;
  }

  FontSet matches_;
  std::vector<Font> opened_;
  Buffer buffer_{hb_buffer_create()};
};

/// Slides say the same words again and again; each is shaped once.
struct Measured {
  explicit Measured(const FontFace& face) : fonts(face) {}
  Fonts fonts;
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
  return measured.widths.emplace(std::move(key), measured.fonts.width(text)).first->second;
}

}  // namespace vellumark::platform
