#pragma once
// The letters of a text as paths.

#include <string_view>

#include "platform/drawing.h"
#include "platform/text_width.h"

namespace vellumark::platform {

/// The outlines of a text on one line, kerned, in ems: the base line begins at 0, 0 and y grows downward.
/// They are filled whole where they overlap. Empty where the system has no font.
Path textOutline(const FontFace& face, std::u16string_view text);

}  // namespace vellumark::platform
