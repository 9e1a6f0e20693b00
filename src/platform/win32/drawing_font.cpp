#include "platform/win32/drawing_font.h"

#include "platform/win32/wide.h"

namespace vellumark::platform::win32 {

DrawingFont::DrawingFont(const FontFace& face) : context_(CreateCompatibleDC(nullptr)) {
  font_ = CreateFontW(-em, 0, 0, 0, face.bold ? FW_BOLD : FW_NORMAL, face.italic, FALSE, FALSE,
                      DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                      DEFAULT_PITCH | FF_DONTCARE, toWide(face.family).c_str());
  before_ = SelectObject(context_, font_);
}

DrawingFont::~DrawingFont() {
  SelectObject(context_, before_);
  DeleteObject(font_);
  DeleteDC(context_);
}

}  // namespace vellumark::platform::win32
