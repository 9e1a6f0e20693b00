#pragma once
// The format of paragraphs: alignment, bullets, levels; rulers with indents and tabs.

#include "deck/model/host_state.h"
#include "deck/model/text_body.h"
#include "host/object.h"

namespace vellumark::deck {

host::ObjectRef makeParagraphFormat(const HostRef& host, const ShapeKey& shape, TextSpan span);
/// The same in the later text model, where it holds the level too.
host::ObjectRef makeParagraphFormat2(const HostRef& host, const ShapeKey& shape, TextSpan span);

/// The level of the paragraphs, from 1; -2 where they differ.
std::int32_t indentLevelOf(const ShapeKey& shape, TextSpan span);
/// -2147024809 for a level below 1 or above `most`. Paragraphs take on the indents of their new level.
void setIndentLevel(const ShapeKey& shape, TextSpan span, std::int32_t level, std::int32_t most);

}  // namespace vellumark::deck
