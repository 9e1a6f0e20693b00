#pragma once
// The text of a shape as characters over its paragraphs and runs.

#include <functional>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "deck/model/document.h"

namespace vellumark::deck {

/// Part of a text, in UTF-16 units from 0.
struct TextSpan {
  std::size_t start = 0;
  std::size_t length = 0;

  std::size_t end() const { return start + length; }
  friend bool operator==(const TextSpan&, const TextSpan&) = default;
};

/// A run (a:r), line break (a:br) or field (a:fld), or something unknown that holds no characters.
struct TextPiece {
  pugi::xml_node node;
  TextSpan span;
};

/// A paragraph; its span leaves the mark that separates it from the next one out.
struct TextParagraph {
  pugi::xml_node node;
  TextSpan span;
  std::vector<TextPiece> pieces;
};

enum class TextUnit;

/// The text as it stands in the file at the moment of making; `replace` brings it up to date. A shape without
/// a text body, and a body without paragraphs, read as one empty paragraph.
class TextBody {
 public:
  explicit TextBody(const ShapeKey& shape);

  /// Paragraph marks are CR, line breaks VT.
  const std::u16string& text() const { return text_; }
  const std::vector<TextParagraph>& paragraphs() const { return paragraphs_; }

  /// The part of a span that lies within the text, not cutting through surrogate pairs.
  TextSpan clipped(TextSpan span) const;
  /// What new text in an empty place takes its format from.
  enum class Neighbour { before, behind };

  /// Puts text (as storableText() gives it) in the place of a span and returns the span that it then has. It
  /// takes on the format of the first run that it replaces, or of its neighbour. The paragraphs keep their
  /// properties one by one; further ones take on those of the last.
  TextSpan replace(TextSpan span, std::u16string_view text, Neighbour neighbour = Neighbour::before);

  /// The paragraphs that a span touches, as places in paragraphs(): from the one where it starts to the one
  /// of its last character.
  std::pair<std::size_t, std::size_t> paragraphsIn(TextSpan span) const;
  /// The format (a:rPr, a:endParaRPr or nothing) of each stretch of a span with the paragraph that it stands
  /// in; that of new text where the span is empty.
  struct Format {
    pugi::xml_node paragraph;
    pugi::xml_node properties;
  };
  std::vector<Format> formats(TextSpan span) const;
  /// Lets `change` write the formats (a:rPr, made where they are missing) of all characters of a span, and of
  /// what will be typed behind paragraphs that it holds whole.
  void changeFormats(TextSpan span, const std::function<void(pugi::xml_node properties)>& change);
  /// The same for the properties (a:pPr) of the paragraphs that a span touches.
  void changeParagraphs(TextSpan span, const std::function<void(pugi::xml_node properties)>& change);

  /// The units of a kind in a span, as `divide` finds them; those that were asked for last are kept.
  const std::vector<TextSpan>& units(TextUnit unit, TextSpan within,
                                     const std::function<std::vector<TextSpan>()>& divide) const;

 private:
  struct Units {
    TextUnit unit;
    TextSpan within;
    std::vector<TextSpan> found;
  };
  void read();
  std::size_t paragraphAt(std::size_t place) const;
  /// a:rPr or a:endParaRPr whose format new text in the place of a span takes on; nothing where there is
  /// none.
  pugi::xml_node formatAt(TextSpan span, Neighbour neighbour) const;
  /// Takes the characters of a span out and returns the pieces that follow it in its last paragraph.
  std::vector<pugi::xml_node> cut(TextSpan span);
  /// Makes a place in a paragraph fall between two pieces.
  void splitAt(std::size_t paragraph, std::size_t place);

  ShapeKey shape_;
  std::u16string text_;
  std::vector<TextParagraph> paragraphs_;
  mutable std::optional<Units> units_;
};

/// The text of a shape as it stands now, read anew only where its sheet was changed since.
std::shared_ptr<const TextBody> currentText(const ShapeKey& shape);
/// TextBody::changeParagraphs() on that text, which stays read, and textChanged().
void changeParagraphs(const ShapeKey& shape, TextSpan span,
                      const std::function<void(pugi::xml_node properties)>& change);

}  // namespace vellumark::deck
