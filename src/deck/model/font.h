#pragma once
// The format of characters.

#include "deck/model/host_state.h"
#include "deck/model/text_body.h"
#include "host/object.h"

namespace vellumark::deck {

host::ObjectRef makeFont(const HostRef& host, const ShapeKey& shape, TextSpan span);

/// The language of characters as a locale id; -2 where they differ.
std::int32_t languageOf(const ShapeKey& shape, TextSpan span);
/// -2147024809 for an id that stands for no known language. 1024 (no proofing) marks the text as not to be
/// checked.
void setLanguage(const ShapeKey& shape, TextSpan span, std::int32_t id);

}  // namespace vellumark::deck
