#pragma once

#include <QDialog>
#include <QEventLoop>
#include <functional>
#include <memory>
#include <vector>

#include "ui/form.h"
#include "ui/qt/event_loops.h"
#include "ui/qt/peer.h"

namespace vellumark::ui::qt {

/// Keeps `dialog` above the window that is worked with, in its middle.
void placeAboveActive(QDialog& dialog);

/// A form on the screen, from its showing to its hiding. The controls lie where the form's layout puts them;
/// keys and closing go through the form.
class FormWindow : public QDialog, private FormView, private PeerWindow {
 public:
  FormWindow(Form& form, EventLoops& loops);
  ~FormWindow() override;

  /// Shows the form and waits until it is hidden. Throws what a handler threw.
  void runModal();
  /// Shows the form; the window deletes itself when the form is hidden.
  void runModeless();
  /// Lets the form's timers tick without showing it; the window deletes itself when the form is unloaded.
  void runHidden() { modeless_ = true; }

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void controlChanged(Control& control) override;
  void captionChanged() override;
  void focusChanged(Control* control) override;
  void visibilityChanged(bool visible) override;
  void repaint() override;

  QWidget& widget() override { return *this; }
  bool live() const override { return live_; }
  void perform(const std::function<void()>& act) override;
  void restoreFocus() override;

  Peer* peerOf(const Control* control) const;
  void present();
  void applyTopMost();
  void arrangeLater();
  void arrangeAnew();
  void arrangeIn(QSize size);
  void end();

  Form* form_;
  EventLoops& loops_;
  QEventLoop loop_;
  std::vector<std::unique_ptr<Peer>> peers_;
  QSize natural_;
  bool live_ = true;
  bool arranging_ = false;
  bool modeless_ = false;
};

}  // namespace vellumark::ui::qt
