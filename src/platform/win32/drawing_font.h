#pragma once

#include <windows.h>

#include "platform/text_width.h"

namespace vellumark::platform::win32 {

/// A font in a device context of its own, at so many pixels to the em that hints no longer round.
class DrawingFont {
 public:
  static constexpr int em = 2048;

  explicit DrawingFont(const FontFace& face);
  ~DrawingFont();
  DrawingFont(const DrawingFont&) = delete;
  DrawingFont& operator=(const DrawingFont&) = delete;

  HDC context() const { return context_; }

 private:
  HDC context_;
  HFONT font_ = nullptr;
  HGDIOBJ before_ = nullptr;
};

}  // namespace vellumark::platform::win32
