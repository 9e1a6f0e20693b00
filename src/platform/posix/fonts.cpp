#include "platform/posix/fonts.h"

#include <hb-ot.h>

#include <map>

namespace vellumark::platform::posix {
namespace {

bool isPair(std::u16string_view text, std::size_t place) {
  return text[place] >= 0xD800 && text[place] <= 0xDBFF && place + 1 < text.size();
}

char32_t character(std::u16string_view text, std::size_t place) {
  if (!isPair(text, place)) return text[place];
  return 0x10000 + ((static_cast<char32_t>(text[place]) - 0xD800) << 10) + (text[place + 1] - 0xDC00);
}

}  // namespace

Fonts::Fonts(const FontFace& face) {
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

double Fonts::shape(std::u16string_view text, const std::function<void(const Run&)>& use) {
  if (opened_.empty()) return 0.5 * static_cast<double>(text.size());
  std::size_t start = 0;
  std::size_t font = 0;
  for (std::size_t place = 0; place < text.size();) {
    const std::size_t length = isPair(text, place) ? 2 : 1;
    const std::size_t wanted = fontFor(character(text, place));
    if (wanted != font) {
      shapeRun(font, text.substr(start, place - start), use);
      start = place;
      font = wanted;
    }
    place += length;
  }
  shapeRun(font, text.substr(start), use);
  return 0;
}

/// The first font that has the character; the first one of all where none has it, and for blanks.
std::size_t Fonts::fontFor(char32_t character) const {
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

hb_font_t* Fonts::open(std::size_t index) {
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

void Fonts::shapeRun(std::size_t index, std::u16string_view text,
                     const std::function<void(const Run&)>& use) {
  if (text.empty()) return;
  Run run{open(index), 0, nullptr, nullptr, 0};
  hb_buffer_t* buffer = buffer_.get();
  hb_buffer_clear_contents(buffer);
  const int length = static_cast<int>(text.size());
  hb_buffer_add_utf16(buffer, reinterpret_cast<const std::uint16_t*>(text.data()), length, 0, length);
  hb_buffer_guess_segment_properties(buffer);
  hb_shape(run.font, buffer, nullptr, 0);
  run.glyphs = hb_buffer_get_glyph_infos(buffer, &run.count);
  run.positions = hb_buffer_get_glyph_positions(buffer, &run.count);
  hb_font_get_scale(run.font, &run.unitsPerEm, nullptr);
  if (run.unitsPerEm > 0) use(run);
}

Fonts& fontsOf(const FontFace& face) {
  static std::map<FontFace, Fonts> faces;
  return faces.try_emplace(face, face).first->second;
}

}  // namespace vellumark::platform::posix
