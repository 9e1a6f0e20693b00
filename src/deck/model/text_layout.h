#pragma once
// The text of a shape broken into lines, as it is seen.

#include <vector>

#include "deck/model/document.h"
#include "deck/model/text_body.h"
#include "platform/drawing.h"
#include "platform/text_width.h"

namespace vellumark::deck {

class LevelStyles;

/// A rectangle in points.
struct TextBounds {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

/// All lines of a text, in points from the top left corner of the box within the margins, along the text's
/// own direction.
class TextLayout {
 public:
  explicit TextLayout(const ShapeKey& shape);

  /// What the lines take up, indents counted in and blanks at line ends left out.
  double width() const { return width_; }
  double height() const { return height_; }

  /// Where part of the text stands on the slide before the shape's rotation.
  TextBounds bounds(TextSpan span) const;

  const TextBody& body() const { return body_; }
  /// The characters as they are seen: capitals where the format asks for them.
  const std::u16string& shown() const { return shown_; }
  /// Characters of one format on one line, and the beginning of a paragraph, where its bullet stands. Places
  /// are those of the base line in points along the text's direction; toSlide() brings them to the slide
  /// before the shape's rotation.
  struct Stretch {
    TextSpan span;
    platform::FontFace face;
    double size;  ///< points
    double x, baseline, width;
  };
  struct Start {
    std::size_t paragraph;
    double x, baseline;
    double size;  ///< of its first characters
  };
  std::vector<Stretch> stretches() const;
  std::vector<Start> starts() const;
  platform::Affine toSlide() const;

 private:
  struct Fragment {
    TextSpan span;
    double left;
    double width;
    double size;  ///< points
    platform::FontFace face;
  };
  struct Line {
    std::size_t start;
    double top;
    double height;
    std::vector<Fragment> fragments;
    double size = 0;   ///< the largest on it
    double shift = 0;  ///< by its alignment
  };
  struct Opening {  ///< of a paragraph
    std::size_t line;
    double indent;
    double size;
  };
  struct Box {  ///< the area within the margins
    double left, top, width, height;
    bool upright;
    bool upward;  ///< upright, from bottom to top
  };
  class ParagraphBuilder;

  void place(const ShapeKey& shape);
  void capitalize(const TextParagraph& paragraph, const LevelStyles& styles);

  TextBody body_;
  std::u16string shown_;
  std::vector<Line> lines_;
  std::vector<Opening> openings_;  ///< one for each paragraph
  double baselineOf(const Line& line) const;
  double width_ = 0;
  double height_ = 0;
  Box box_{};
  double shiftX_ = 0;  ///< from the box to the block of lines
  double shiftY_ = 0;
};

/// Points between the lines of a text of one point's size, whatever the font.
inline constexpr double lineSpacing = 276'999.0 / (18 * 12'700);
/// The part of it that lies below the base line.
inline constexpr double lineDescent = 0.269;
/// EMU that a shape fitted to its text is higher than lines and margins.
inline constexpr double fitSlack = 893;

}  // namespace vellumark::deck
