#pragma once
// The text of a shape broken into lines, as it is seen.

#include <vector>

#include "deck/model/document.h"
#include "deck/model/text_body.h"
#include "platform/text_width.h"

namespace vellumark::deck {

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
  };
  struct Box {  ///< the area within the margins
    double left, top, width, height;
    bool upright;
  };
  class ParagraphBuilder;

  void place(const ShapeKey& shape);

  TextBody body_;
  std::vector<Line> lines_;
  double width_ = 0;
  double height_ = 0;
  Box box_{};
  double shiftX_ = 0;  ///< from the box to the block of lines
  double shiftY_ = 0;
};

/// Points between the lines of a text of one point's size, whatever the font.
inline constexpr double lineSpacing = 276'999.0 / (18 * 12'700);
/// EMU that a shape fitted to its text is higher than lines and margins.
inline constexpr double fitSlack = 893;

}  // namespace vellumark::deck
