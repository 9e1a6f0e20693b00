#include "ui/qt/peer.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPalette>
#include <QScopedValueRollback>
#include <QWidget>

#include "ui/form.h"
#include "ui/qt/conversions.h"

namespace vellumark::ui::qt {

char accessKeyOf(const QEvent& event) {
  const auto& key = static_cast<const QKeyEvent&>(event);
  const bool alt =
      key.modifiers() == Qt::AltModifier || key.modifiers() == (Qt::AltModifier | Qt::ShiftModifier);
  return alt && key.key() > Qt::Key_Space && key.key() < Qt::Key_AsciiTilde ? static_cast<char>(key.key())
                                                                            : '\0';
}

void Peer::use(QWidget* widget) {
  widget_ = widget;
  widget_->setObjectName(toQt(control_.name()));
  watch(widget_);
}

void Peer::watch(QWidget* widget) {
  // Clicks move the focus through the form, never by Qt alone.
  if (widget->focusPolicy() != Qt::NoFocus) {
    widget->setFocusPolicy(control_.focusable() && widget == widget_ ? Qt::TabFocus : Qt::NoFocus);
  }
  widget->setMouseTracking(true);
  widget->installEventFilter(this);
}

void Peer::refresh() {
  if (refreshing_ || !window_.live()) return;
  const QScopedValueRollback<bool> guard(refreshing_, true);
  if (widget_) look();
  show();
}

void Peer::look() {
  const QFont font = fontOf(control_);
  if (widget_->font() != font) widget_->setFont(font);
  QPalette palette;
  if (const auto color = control_.foreColor()) {
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
      palette.setColor(QPalette::Active, role, toQt(*color));
      palette.setColor(QPalette::Inactive, role, toQt(*color));
    }
  }
  if (const auto color = control_.backColor()) {
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
      palette.setColor(role, toQt(*color));
    }
  }
  if (widget_->palette() != palette) widget_->setPalette(palette);
  widget_->setAutoFillBackground(control_.backColor().has_value());
  if (control_.handCursor()) {
    widget_->setCursor(Qt::PointingHandCursor);
  } else if (widget_->cursor().shape() == Qt::PointingHandCursor) {
    widget_->unsetCursor();
  }
  widget_->setToolTip(toQtToolTip(control_.toolTip()));
  widget_->setEnabled(control_.enabled());
  widget_->setVisible(control_.visible());
}

void Peer::act(const std::function<void()>& what) {
  if (!byUser()) return;
  window_.perform(what);
  refresh();
}

void Peer::actOnItems(const std::function<void()>& what) {
  if (!byUser()) return;
  const QScopedValueRollback<bool> guard(refreshing_, true);
  window_.perform(what);
  QMetaObject::invokeMethod(
      this, [this] { refresh(); }, Qt::QueuedConnection);
}

bool Peer::takeFocus() {
  Form& form = control_.form();
  if (form.focused() == &control_) {
    window_.restoreFocus();
    return true;
  }
  bool taken = false;
  window_.perform([&] { taken = form.focus(control_); });
  return taken && window_.live();
}

bool Peer::pressed(const QMouseEvent& event) {
  if (!control_.enabled()) return false;
  if (control_.focusable() && !takeFocus()) return true;
  pressed_ = event.button() == Qt::LeftButton;
  return clicksByItself() && !control_.focusable();
}

bool Peer::released(const QWidget& where, const QMouseEvent& event) {
  if (!pressed_ || event.button() != Qt::LeftButton) return false;
  pressed_ = false;
  if (!clicksByItself()) return false;
  if (where.rect().contains(event.position().toPoint())) {
    act([this] { control_.form().click(control_); });
  }
  return !window_.live() || !control_.focusable();
}

bool Peer::eventFilter(QObject* watched, QEvent* event) {
  if (!window_.live()) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return pressed(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
      return released(static_cast<const QWidget&>(*watched), static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseMove:
      if (control_.onMouseMove && control_.enabled()) act(control_.onMouseMove);
      return false;
    case QEvent::FocusIn:
      // By Qt itself, as when a popup closes.
      if (control_.focusable() && !takeFocus() && window_.live()) {
        QMetaObject::invokeMethod(
            this, [this] { window_.restoreFocus(); }, Qt::QueuedConnection);
      }
      return false;
    case QEvent::ShortcutOverride:
      // Else Qt would press the button of that key past the form.
      if (accessKeyOf(*event) == '\0') return false;
      event->accept();
      return true;
    case QEvent::KeyPress:
      // What a widget within it passes on was seen before.
      if (watched == window_.widget().focusWidget() &&
          window_.previewKey(static_cast<const QKeyEvent&>(*event))) {
        return true;
      }
      if (const char key = accessKeyOf(*event)) {
        window_.perform([&] { control_.form().pressAccessKey(key); });
        return true;
      }
      return keyPressed(static_cast<const QKeyEvent&>(*event).text());
    default:
      return false;
  }
}

}  // namespace vellumark::ui::qt
