#pragma once
// What shows one control.

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "ui/control.h"
#include "ui/layout.h"
#include "ui/win32/resources.h"

namespace vellumark::ui::win32 {

class Peer;

/// A message on its way to a window.
struct Message {
  HWND window;
  UINT code;
  WPARAM wParam;
  LPARAM lParam;
};

/// The window as its peers see it.
class PeerWindow {
 public:
  virtual HWND handle() const = 0;
  virtual Resources& resources() = 0;
  /// How much larger than in the system's own resolution things are on the window's screen.
  virtual double zoom() const = 0;
  /// Whether the window still shows its form; the form's controls may be gone where it doesn't.
  virtual bool live() const = 0;
  /// Counts the messages that are being handled, during which the window can't be deleted.
  virtual void busy(int change) = 0;
  /// Performs what the user did to the form. Keeps failures from the system.
  virtual void perform(const std::function<void()>& act) = 0;
  /// Keeps a failure that has been caught from the system, as perform() does.
  virtual void caught() noexcept = 0;
  /// Shows the form a key on its way to the control that has the focus; true where the message is done with.
  virtual bool previewKey(const Message& message) = 0;
  /// Tab, Enter, Escape and access keys; true where the message is done with.
  virtual bool formKey(const Message& message) = 0;
  /// Gives the keyboard back to the control that has the form's focus, now or when the message is done with.
  virtual void restoreFocus() = 0;
  virtual void restoreFocusLater() = 0;
  /// Refreshes a peer when the message is done with.
  virtual void refreshLater(Peer& peer) = 0;
  virtual void showToolTip(HWND window, const std::string& text) = 0;

 protected:
  ~PeerWindow() = default;
};

/// One control as a window of the system. What the user does goes through the form's rules; what the control
/// then says is shown, so that a refused act leaves no trace.
class Peer {
 public:
  virtual ~Peer();
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  Control& control() const { return control_; }
  /// The window that lies in the form; nullptr for controls that are not seen.
  HWND handle() const { return handle_; }
  /// Brings the window up to date with the control.
  void refresh();
  /// Whether a change of the control may ask for another size of its place.
  virtual bool changesSize() const { return true; }
  virtual void place(const Rect& rect);
  /// The form's focus has moved somewhere.
  virtual void focusMoved() {}
  /// Who comes by the tab key types over what is there.
  virtual void selectAll() {}

  // What the control's window tells the form's.
  virtual void commanded(int /*notification*/) {}
  virtual LRESULT notified(NMHDR& /*notification*/) { return 0; }
  /// Sets text and ground colour for painting; nullptr for the system's own.
  virtual HBRUSH colors(HDC target, bool field);

 protected:
  Peer(Control& control, PeerWindow& window) : control_(control), window_(window) {}

  /// Makes the window of the control, and watches it.
  void create(const wchar_t* windowClass, DWORD style, DWORD extendedStyle = 0);
  /// Watches another window within it.
  void watch(HWND window);

  /// Shows the control's own values.
  virtual void show() {}
  virtual HFONT font() { return window_.resources().fontOf(control_, window_.zoom()); }
  /// Whether clicks come from here; other windows tell of their clicks themselves.
  virtual bool clicksByItself() const { return false; }
  /// Whether the window needs a key (VK_RETURN, VK_ESCAPE) that is else the form's.
  virtual bool keepsKey(WPARAM /*key*/) const { return false; }
  /// Called before the window has the message; an answer takes it away from it.
  virtual std::optional<LRESULT> received(const Message& message);
  /// Called when the window has had it.
  virtual void passed(const Message& /*message*/) {}

  /// What the user did, unless it is the peer that changes its window.
  void act(const std::function<void()>& what);
  /// As act(), and shows the outcome only when the message is done with: for windows whose items must not
  /// vanish meanwhile.
  void actOnItems(const std::function<void()>& what);
  /// Whether what the window tells is the user's doing.
  bool byUser() const { return !refreshing_ && window_.live(); }
  /// Whether the window gets the focus at this moment.
  bool focusArrives() const { return focusArrives_; }
  PeerWindow& window() const { return window_; }

  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(handle_, message, wParam, lParam);
  }
  template <typename T>
  LRESULT send(UINT message, WPARAM wParam, T* what) const {
    return SendMessageW(handle_, message, wParam, reinterpret_cast<LPARAM>(what));
  }
  void changeStyle(DWORD mask, DWORD style);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT code, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR data);
  void look();
  bool takeFocus();
  bool pressed(const Message& message);
  bool released(const Message& message);

  Control& control_;
  PeerWindow& window_;
  HWND handle_ = nullptr;
  std::vector<HWND> watched_;
  bool refreshing_ = false;
  bool pressed_ = false;
  bool focusArrives_ = false;
  std::optional<Color> foreColor_, backColor_;
};

/// The peer of a control, whatever its kind.
std::unique_ptr<Peer> makePeer(Control& control, PeerWindow& window);

}  // namespace vellumark::ui::win32
