#pragma once
// The measures of an agenda's rows, the same for all its slides.

#include <cstdint>
#include <string>

#include "agenda/agenda_numbers.h"

namespace vellumark::agenda {

/// What the style says, and what is computed from it and from the texts. Lengths are in points. They hold for
/// one generation of the slides.
struct AgendaMetrics : NumberRules {
  std::int16_t visibleItemCount = 0;  ///< items that are shown as rows

  // As the style has them.
  double frameLeft = 0, frameTop = 0, frameWidth = 0, frameHeight = 0;
  double boxFontRatio = 0;   ///< side of a box as a multiple of the font size
  double boxBarSpacing = 0;  ///< between a box and its bar, and the step of one level
  std::string fontName;      ///< with which texts are measured
  std::int16_t slideLayout = 0;
  bool barOnly = false;      ///< a row is one bar without box
  bool goldenCanon = false;  ///< spare height lies one third above the rows
  bool anyBold = false;      ///< some text of some bar is bold; it is then measured so
  bool anyItalic = false;

  // Computed.
  double rowFontSize = 0;
  double boxSize = 0;  ///< side of a box, height of a bar
  double rowGap = 0;
  double canonOffset = 0;       ///< above the first row
  double textMargin = 0;        ///< left and right in a bar
  double columnGap = 0;         ///< kept free for each column behind the text
  double firstTabPosition = 0;  ///< of the column behind the text; 0 for no such tab
  double hasRightTab = 0;       ///< other than 0 where a tab stands at the end of the bar

  /// Fits the rows into the frame, given the widths that the columns need at the style's font size: first by
  /// the width, then by the height, with the font in whole points.
  struct Widths {
    double textWidth = 0, responsibleWidth = 0, timeWidth = 0, pageWidth = 0;
    bool showResponsible = false, showTime = false, showPage = false;
  };
  void fit(const Widths& widths);

  /// Top of a row, counted from 1.
  double rowTop(std::int16_t index) const {
    return frameTop + (index - 1) * (rowGap + boxSize) + canonOffset;
  }
  /// How far a level lies behind the one above it, in a row with a box.
  double step() const { return boxSize + boxBarSpacing; }
  /// Sizes that follow from the font size alone.
  void takeSizesFromFont();

 private:
  void fitHeight();
};

}  // namespace vellumark::agenda
