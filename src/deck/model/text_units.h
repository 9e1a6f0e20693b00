#pragma once
// What a text consists of, as the host divides it.

#include <vector>

#include "deck/model/text_body.h"

namespace vellumark::deck {

enum class TextUnit { whole, paragraphs, words, characters, runs };

/// The units of a text that lie in a span, clipped to it. A paragraph has its mark with it; one without any
/// character counts for nothing. A word has the blanks, breaks and marks behind it; each punctuation mark is
/// a word, but an apostrophe between letters and a point or comma between digits belong to theirs. A run goes
/// as far as the format stays the same within a paragraph. Good as long as the text, and until other units of
/// it are asked for.
const std::vector<TextSpan>& textUnits(const TextBody& body, TextUnit unit, TextSpan within);

}  // namespace vellumark::deck
