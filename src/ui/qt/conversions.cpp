#include "ui/qt/conversions.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTextDocument>
#include <utility>

#include "ui/control.h"
#include "ui/keys.h"

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

int keyCodeOf(const QKeyEvent& event) {
  constexpr std::pair<Qt::Key, int> codes[] = {{Qt::Key_Backspace, keys::backspace},
                                               {Qt::Key_Tab, keys::tab},
                                               {Qt::Key_Backtab, keys::tab},
                                               {Qt::Key_Return, keys::enter},
                                               {Qt::Key_Enter, keys::enter},
                                               {Qt::Key_Escape, keys::escape},
                                               {Qt::Key_PageUp, keys::pageUp},
                                               {Qt::Key_PageDown, keys::pageDown},
                                               {Qt::Key_End, keys::end},
                                               {Qt::Key_Home, keys::home},
                                               {Qt::Key_Left, keys::left},
                                               {Qt::Key_Up, keys::up},
                                               {Qt::Key_Right, keys::right},
                                               {Qt::Key_Down, keys::down},
                                               {Qt::Key_Insert, keys::insert},
                                               {Qt::Key_Delete, keys::del}};
  const int key = event.key();
  for (const auto& [qt, code] : codes) {
    if (key == qt) return code;
  }
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return keys::f1 + key - Qt::Key_F1;
  return keys::codeOf(static_cast<char32_t>(key));
}

int shiftOf(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? keys::shift : 0) +
         (modifiers.testFlag(Qt::ControlModifier) ? keys::control : 0) +
         (modifiers.testFlag(Qt::AltModifier) ? keys::alt : 0);
}

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
