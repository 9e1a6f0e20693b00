#include "ui/qt/conversions.h"

#include <QApplication>
#include <QTextDocument>

#include "ui/control.h"

namespace vellumark::ui::qt {

QString toQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string fromQt(const QString& text) { return text.toStdString(); }

QString toQtLines(std::string_view text) {
  return toQt(text).replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
}

QString toQtToolTip(std::string_view text) {
  const QString lines = toQtLines(text);
  return Qt::mightBeRichText(lines) ? Qt::convertFromPlainText(lines) : lines;
}

QColor toQt(Color color) { return {redOf(color), greenOf(color), blueOf(color)}; }

QFont scaledFont(double scale, bool bold) {
  QFont font = QApplication::font();
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * scale);
  } else {
    font.setPixelSize(qMax(1, qRound(font.pixelSize() * scale)));
  }
  font.setBold(bold);
  return font;
}

QFont fontOf(const Control& control) { return scaledFont(control.fontScale(), control.bold()); }

}  // namespace vellumark::ui::qt
