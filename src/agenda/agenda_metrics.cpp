#include "agenda/agenda_metrics.h"

#include "base/conversions.h"

namespace vellumark::agenda {
namespace {

using base::divide;

constexpr double marginOfFont = 0.4;
/// The least gap between rows, of their height.
constexpr double leastGap = 0.2;
/// The golden canon leaves one third of the spare height above the rows.
constexpr double canonShare = 3.0;

}  // namespace

void AgendaMetrics::takeSizesFromFont() {
  boxSize = rowFontSize * boxFontRatio;
  rowGap = boxSize;
  textMargin = rowFontSize * marginOfFont;
  columnGap = rowFontSize;
}

void AgendaMetrics::fit(const Widths& widths) {
  const int columns = widths.showResponsible + widths.showTime + widths.showPage;
  const double available = frameWidth - boxSize - boxBarSpacing - 2 * textMargin - columns * columnGap;
  const double needed = widths.textWidth + widths.responsibleWidth + widths.timeWidth + widths.pageWidth;
  if (needed > available) {
    rowFontSize = base::fix(divide(available * rowFontSize, needed));
    takeSizesFromFont();
  }
  fitHeight();
  // The text's share of what is available is its share of what is needed.
  firstTabPosition = widths.showResponsible ? divide(widths.textWidth, needed) * available + columnGap : 0;
  hasRightTab = widths.showTime || widths.showPage ? 1.0 : 0;
}

void AgendaMetrics::fitHeight() {
  const double total = (2 * visibleItemCount - 1) * boxSize;
  const int gaps = visibleItemCount - 1;
  canonOffset = 0;
  if (total > frameHeight) {
    rowGap = boxSize - divide(total - frameHeight, gaps);
  } else if (goldenCanon) {
    canonOffset = (frameHeight - total) / canonShare;
  }
  if (boxSize * leastGap <= rowGap) return;
  const double wanted = gaps * leastGap * boxSize + visibleItemCount * boxSize;
  rowFontSize = base::fix(divide(frameHeight, wanted) * rowFontSize);
  boxSize = rowFontSize * boxFontRatio;
  rowGap = divide(frameHeight - visibleItemCount * boxSize, gaps);
  textMargin = rowFontSize * marginOfFont;
  columnGap = rowFontSize;
}

}  // namespace vellumark::agenda
