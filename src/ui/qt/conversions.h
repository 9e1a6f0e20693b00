#pragma once
// Between the forms' values and Qt's.

#include <QColor>
#include <QFont>
#include <QString>
#include <string>
#include <string_view>

class QKeyEvent;

#include "ui/color.h"

namespace vellumark::ui {

class Control;

namespace qt {

QString toQt(std::string_view text);
std::string fromQt(const QString& text);
/// With line feeds for all line ends, as Qt wants its lines.
QString toQtLines(std::string_view text);
/// A tool tip is rich text to Qt where it looks like it; this shows it as it is.
QString toQtToolTip(std::string_view text);
QColor toQt(Color color);
/// The code of a key (keys.h); 0 for those that have none there.
int keyCodeOf(const QKeyEvent& event);
/// What is held down, as keys.h counts it.
int shiftOf(Qt::KeyboardModifiers modifiers);

/// The application's font at a size relative to it.
QFont scaledFont(double scale, bool bold);
QFont fontOf(const Control& control);

}  // namespace qt
}  // namespace vellumark::ui
