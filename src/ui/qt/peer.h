#pragma once
// What shows one control.

#include <QObject>
#include <functional>
#include <memory>

#include "ui/control.h"
#include "ui/layout.h"

class QKeyEvent;
class QMouseEvent;
class QWidget;

namespace vellumark::ui::qt {

/// The window as its peers see it.
class PeerWindow {
 public:
  virtual QWidget& widget() = 0;
  /// Whether the window still shows its form; the form's controls may be gone where it doesn't.
  virtual bool live() const = 0;
  /// Performs what the user did to the form. Keeps failures from Qt.
  virtual void perform(const std::function<void()>& act) = 0;
  /// Shows the form a key on its way to the control that has the focus; true where the control shall not have
  /// it.
  virtual bool previewKey(const QKeyEvent& event) = 0;
  /// Gives the keyboard back to the control that has the form's focus.
  virtual void restoreFocus() = 0;

 protected:
  ~PeerWindow() = default;
};

/// One control as a widget. What the user does goes through the form's rules; what the control then says is
/// shown, so that a refused act leaves no trace.
class Peer : public QObject {
 public:
  Control& control() const { return control_; }
  /// The widget that lies in the form; nullptr for controls that are not seen.
  QWidget* widget() const { return widget_; }
  /// Brings the widget up to date with the control.
  void refresh();
  /// Whether a change of the control may ask for another size of its place.
  virtual bool changesSize() const { return true; }

 protected:
  Peer(Control& control, PeerWindow& window) : control_(control), window_(window) {}

  /// Takes the widget that was made for the control, and watches it.
  void use(QWidget* widget);
  /// Watches another widget within it.
  void watch(QWidget* widget);

  /// Shows the control's own values.
  virtual void show() {}
  /// Whether clicks come from here; other widgets tell of their clicks themselves.
  virtual bool clicksByItself() const { return false; }
  /// A character that the user types; true where the widget shall not have it.
  virtual bool keyPressed(const QString&) { return false; }

  /// What the user did, unless it is the peer that changes its widget.
  void act(const std::function<void()>& what);
  /// As act(), and shows the outcome only when Qt is done with the event: for widgets whose items must not
  /// vanish meanwhile.
  void actOnItems(const std::function<void()>& what);
  /// Whether what the widget tells is the user's doing.
  bool byUser() const { return !refreshing_ && window_.live(); }
  PeerWindow& window() const { return window_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void look();
  bool takeFocus();
  bool pressed(const QMouseEvent& event);
  bool released(const QWidget& where, const QMouseEvent& event);

  Control& control_;
  PeerWindow& window_;
  QWidget* widget_ = nullptr;
  bool refreshing_ = false;
  bool pressed_ = false;
};

/// The peer of a control, whatever its kind.
std::unique_ptr<Peer> makePeer(Control& control, PeerWindow& window);

/// Whether a key event asks for an access key, and for which; 0 if it doesn't.
char accessKeyOf(const QEvent& event);

}  // namespace vellumark::ui::qt
