#include "ui/qt/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "ui/qt/conversions.h"
#include "ui/qt/font_measurer.h"

namespace vellumark::ui::qt {

void placeAboveActive(QDialog& dialog) {
  const QWidget* active = QApplication::activeWindow();
  dialog.winId();
  const QScreen* screen = active ? active->screen() : dialog.screen();
  const QRect area = active ? active->frameGeometry() : screen->availableGeometry();
  if (active) dialog.windowHandle()->setTransientParent(active->windowHandle());
  dialog.adjustSize();
  QRect place(QPoint(), dialog.size());
  place.moveCenter(area.center());
  // Wholly on the screen, its upper left corner above all.
  const QRect available = screen->availableGeometry();
  place.moveLeft(std::max(available.left(), std::min(place.left(), available.right() - place.width())));
  place.moveTop(std::max(available.top(), std::min(place.top(), available.bottom() - place.height())));
  dialog.move(place.topLeft());
}

FormWindow::FormWindow(Form& form, EventLoops& loops) : form_(&form), loops_(loops) {
  setObjectName(toQt(form.name()));
  if (form.bare()) {
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
  } else {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
  }
  captionChanged();
  for (Control* control : form.controls()) {
    if (auto peer = makePeer(*control, *this)) {
      peer->refresh();
      peers_.push_back(std::move(peer));
    }
  }
  arrangeAnew();
  form.view(this);
}

FormWindow::~FormWindow() {
  end();
  peers_.clear();  // before their widgets
}

void FormWindow::runModal() {
  setWindowModality(Qt::ApplicationModal);
  present();
  if (live_) {
    loops_.run(loop_);
  } else {
    loops_.rethrow();
  }
}

void FormWindow::runModeless() {
  modeless_ = true;
  present();
  loops_.rethrow();
}

void FormWindow::present() {
  restoreFocus();
  if (form_->topMost()) setWindowFlag(Qt::WindowStaysOnTopHint);
  placeAboveActive(*this);
  QDialog::show();
  perform([this] { form_->activated(); });
  applyTopMost();
}

/// Becoming topmost takes a new window of the system's, which has to be shown again.
void FormWindow::applyTopMost() {
  if (!live_ || form_->topMost() == windowFlags().testFlag(Qt::WindowStaysOnTopHint)) return;
  const QPoint place = pos();
  setWindowFlag(Qt::WindowStaysOnTopHint, form_->topMost());
  move(place);
  QDialog::show();
}

void FormWindow::end() {
  if (!live_) return;
  live_ = false;
  form_->view(nullptr);
  form_ = nullptr;
  hide();
  loop_.quit();
  if (modeless_) deleteLater();
}

void FormWindow::perform(const std::function<void()>& act) {
  if (!live_) return;
  loops_.perform(act);
  if (!live_) return;
  applyTopMost();
  // A control that the act disabled, hid or covered passes its focus on.
  if (Control* focused = form_->focused(); focused && !form_->reachable(*focused)) {
    loops_.perform([this] { form_->tab(); });
  }
}

Peer* FormWindow::peerOf(const Control* control) const {
  const auto found = std::find_if(peers_.begin(), peers_.end(),
                                  [&](const auto& peer) { return &peer->control() == control; });
  return found == peers_.end() ? nullptr : found->get();
}

void FormWindow::controlChanged(Control& control) {
  Peer* peer = peerOf(&control);
  if (!peer) return;
  peer->refresh();
  if (peer->widget() && peer->changesSize()) arrangeLater();
}

void FormWindow::captionChanged() { setWindowTitle(toQtLines(form_->caption())); }

void FormWindow::focusChanged(Control* control) {
  const Peer* peer = peerOf(control);
  if (peer && peer->widget() && !peer->widget()->hasFocus()) peer->widget()->setFocus(Qt::OtherFocusReason);
}

void FormWindow::visibilityChanged(bool visible) {
  if (!visible) end();
}

/// The places of screens are counted in their own pixels, what lies on them is scaled.
Rect FormWindow::frame() const {
  const QRect own = frameGeometry();
  const QPoint corner = screen()->geometry().topLeft();
  const double scale = screen()->devicePixelRatio();
  const auto scaled = [&](int length) { return qRound(length * scale); };
  return {corner.x() + scaled(own.x() - corner.x()), corner.y() + scaled(own.y() - corner.y()),
          scaled(own.width()), scaled(own.height())};
}

/// A new window needs the window system's word that it is on the screen; what users do waits meanwhile.
void FormWindow::repaint() {
  if (!live_) return;
  if (arranging_) arrangeAnew();
  if (!windowHandle()->isExposed()) QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  QDialog::repaint();
}

void FormWindow::restoreFocus() {
  if (live_) focusChanged(form_->focused());
}

bool FormWindow::focusNextPrevChild(bool next) {
  // Qt asks as well while the program disables the control that has the focus.
  if (live_ && form_->focused() && !form_->focused()->canFocus()) return true;
  perform([&] { form_->tab(next); });
  if (!live_) return true;
  // Who comes by the tab key types over what is there.
  QWidget* focused = focusWidget();
  if (auto* line = qobject_cast<QLineEdit*>(focused)) line->selectAll();
  return true;
}

bool FormWindow::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && accessKeyOf(*event) != '\0') {
    event->accept();
    return true;
  }
  return QDialog::event(event);
}

bool FormWindow::previewKey(const QKeyEvent& event) {
  const int shift = shiftOf(event.modifiers());
  if (const int code = keyCodeOf(event)) perform([&] { form_->keyDown(code, shift); });
  if (!live_ || event.text().isEmpty() || accessKeyOf(event) != '\0') return !live_;
  bool passes = true;
  perform([&] { passes = form_->keyPress(event.text().toUcs4().front()); });
  return !passes || !live_;
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  // Keys that a control passes on were seen before.
  const bool first = focusWidget() == nullptr || focusWidget() == this;
  if (first && previewKey(*event)) return;
  if (const char access = accessKeyOf(*event)) {
    perform([&] { form_->pressAccessKey(access); });
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    perform([&] { form_->pressEnter(); });
  } else if (event->key() == Qt::Key_Escape) {
    perform([&] { form_->pressEscape(); });
  } else {
    event->ignore();
  }
}

void FormWindow::mousePressEvent(QMouseEvent* event) {
  QDialog::mousePressEvent(event);
  if (event->button() == Qt::LeftButton) perform([&] { form_->clickBackground(); });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  perform([&] { form_->close(); });
}

/// A form without a frame shows where it ends.
void FormWindow::paintEvent(QPaintEvent* event) {
  QDialog::paintEvent(event);
  if (!windowFlags().testFlag(Qt::FramelessWindowHint)) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Dark));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (live_) arrangeIn(size());
}

/// Many changes of controls in a row arrange the form once.
void FormWindow::arrangeLater() {
  if (arranging_) return;
  arranging_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (live_) arrangeAnew();
      },
      Qt::QueuedConnection);
}

/// A window of its natural size keeps to that; one that the user made larger stays so.
void FormWindow::arrangeAnew() {
  arranging_ = false;
  const Size needed = arrange(form_->layout(), FontMeasurer()).size;
  const QSize natural(needed.width, needed.height);
  const QSize wanted = size() == natural_ || !isVisible() ? natural : size().expandedTo(natural);
  natural_ = natural;
  setMinimumSize(natural);
  resize(wanted);
  arrangeIn(size());
}

void FormWindow::arrangeIn(QSize size) {
  const Arrangement arrangement = arrange(form_->layout(), FontMeasurer(), {size.width(), size.height()});
  for (const auto& peer : peers_) {
    if (!peer->widget()) continue;
    // A control that no layout names is not seen.
    const auto found = arrangement.places.find(&peer->control());
    const Rect place = found == arrangement.places.end() ? Rect{} : found->second;
    peer->widget()->setGeometry(place.x, place.y, place.width, place.height);
  }
}

}  // namespace vellumark::ui::qt
