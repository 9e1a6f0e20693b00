#pragma once
// How wide a text is in a font of the system.

#include <string>
#include <string_view>

namespace vellumark::platform {

/// A font as texts name it; the system stands another one in where it lacks the family.
struct FontFace {
  std::string family;
  bool bold = false;
  bool italic = false;

  friend auto operator<=>(const FontFace&, const FontFace&) = default;
};

/// The width of a text on one line, kerned, in ems: as a multiple of the font size. Characters that the font
/// lacks are measured in the font that the system shows them in. Not for several threads at once.
double textWidth(const FontFace& face, std::u16string_view text);

}  // namespace vellumark::platform
