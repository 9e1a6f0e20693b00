#pragma once

#include "ui/layout.h"
#include "ui/win32/resources.h"

namespace vellumark::ui::win32 {

/// Sizes of texts in the system's message font, as large as on a screen of that zoom.
class FontMeasurer : public TextMeasurer {
 public:
  FontMeasurer(Resources& resources, double zoom);
  ~FontMeasurer() override;
  FontMeasurer(const FontMeasurer&) = delete;
  FontMeasurer& operator=(const FontMeasurer&) = delete;

  Size text(std::string_view text, double scale, bool bold, int wrapWidth) const override;
  Size character() const override;
  double canvasScale() const override { return resources_.canvasScale(); }

 private:
  Resources& resources_;
  double zoom_;
  HDC screen_;
};

}  // namespace vellumark::ui::win32
