#include "ui/qt/font_measurer.h"

#include <QFontMetrics>

#include "ui/qt/conversions.h"

namespace vellumark::ui::qt {

Size FontMeasurer::text(std::string_view text, double scale, bool bold, int wrapWidth) const {
  const QFontMetrics metrics(scaledFont(scale, bold));
  const QString lines = toQtLines(text);
  QSize size = metrics.size(Qt::TextExpandTabs, lines);
  if (wrapWidth > 0 && size.width() > wrapWidth) {
    constexpr int anyHeight = 1 << 20;
    size =
        metrics.boundingRect(QRect(0, 0, wrapWidth, anyHeight), Qt::TextExpandTabs | Qt::TextWordWrap, lines)
            .size();
  }
  // Glyphs that lean out of their advance need a pixel at the end.
  return {size.width() + 1, qMax(size.height(), metrics.height())};
}

Size FontMeasurer::character() const {
  const QFontMetrics metrics(scaledFont(1, false));
  return {metrics.averageCharWidth(), metrics.height()};
}

}  // namespace vellumark::ui::qt
