#pragma once

#include "ui/layout.h"

namespace vellumark::ui::qt {

/// Sizes of texts in the application's font.
class FontMeasurer : public TextMeasurer {
 public:
  Size text(std::string_view text, double scale, bool bold, int wrapWidth) const override;
  Size character() const override;
};

}  // namespace vellumark::ui::qt
