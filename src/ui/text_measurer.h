#pragma once
// What the layout needs to know of a toolkit: how large it draws texts, and what it draws around them.

#include <string_view>

#include "ui/font.h"
#include "ui/geometry.h"

namespace vellumark::ui {

enum class Kind;

class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  /// The room that a text takes. Line feeds break it; with a `wrapWidth` above 0 it also breaks between words
  /// so as not to be wider, unless a single word is.
  virtual Size textSize(std::string_view text, const Font& font, int wrapWidth = 0) const = 0;
  /// What the toolkit draws around a control's text: borders, a check mark, an arrow.
  virtual Size chrome(Kind kind) const = 0;
};

}  // namespace vellumark::ui
