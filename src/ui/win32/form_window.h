#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "ui/form.h"
#include "ui/win32/event_loops.h"
#include "ui/win32/modality.h"
#include "ui/win32/peer.h"

namespace vellumark::ui::win32 {

/// The class of all windows of forms. It is registered while the object lives.
class FormClass {
 public:
  explicit FormClass(const Resources& resources);
  ~FormClass();
  FormClass(const FormClass&) = delete;
  FormClass& operator=(const FormClass&) = delete;

  static constexpr const wchar_t* name = L"VellumarkForm";

 private:
  HINSTANCE instance_;
  bool registered_;
};

/// A form on the screen, from its showing to its hiding. The controls lie where the form's layout puts them;
/// keys and closing go through the form.
///
/// The window answers the registered message "VellumarkControlName" with the name of the control whose window
/// wParam is, or of the form where that is 0: written to the wchar_t[64] at lParam, its length is the result,
/// 0 for no control. It has the property "VellumarkModal" while somebody waits for the form.
class FormWindow : private FormView, private PeerWindow {
 public:
  FormWindow(Form& form, EventLoops& loops, Resources& resources);
  ~FormWindow();
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  /// Shows the form and waits until it is hidden. Throws what a handler threw.
  void runModal();
  /// Shows the form; calls `gone` when it is hidden and the window may be deleted.
  void runModeless(std::function<void(FormWindow&)> gone);

 private:
  friend class FormClass;
  static LRESULT CALLBACK procedure(HWND window, UINT code, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> received(const Message& message);
  std::optional<LRESULT> receivedLive(const Message& message);
  LRESULT tellName(HWND window, wchar_t* name) const;

  void controlChanged(Control& control) override;
  void captionChanged() override;
  void focusChanged(Control* control) override;
  void visibilityChanged(bool visible) override;
  Rect frame() const override;
  void repaint() override;

  HWND handle() const override { return handle_; }
  Resources& resources() override { return resources_; }
  double zoom() const override { return zoom_; }
  bool live() const override { return live_; }
  void busy(int change) override;
  void perform(const std::function<void()>& act) override;
  bool previewKey(const Message& message) override;
  void caught() noexcept override { loops_.caught(keepsFailures_); }
  bool formKey(const Message& message) override;
  void restoreFocus() override;
  void restoreFocusLater() override;
  void refreshLater(Peer& peer) override;
  void showToolTip(HWND window, const std::string& text) override;

  Peer* peerOf(const Control* control) const;
  Peer* peerOf(HWND window) const;
  Peer* peerAt(UINT_PTR address) const;
  HBRUSH colorsOf(const Message& message) const;
  void create(HWND owner);
  void makePeers();
  void present();
  void placeAbove(HWND owner);
  void applyTopMost();
  void tab(bool forward);
  void arrangeLater();
  void arrangeAnew();
  void arrangeIn(SIZE size);
  void dpiChanged(UINT dpi, const RECT& proposed);
  SIZE outer(SIZE inner) const;
  SIZE inner() const;
  void end();

  Form* form_;
  EventLoops& loops_;
  Resources& resources_;
  HWND handle_ = nullptr;
  HWND toolTips_ = nullptr;
  std::vector<std::unique_ptr<Peer>> peers_;
  std::unique_ptr<Modality> modality_;
  std::function<void(FormWindow&)> gone_;
  SIZE natural_ = {};
  double zoom_ = 1;
  int busy_ = 0;
  bool live_ = true;
  bool arranging_ = false;
  bool keepsFailures_ = true;
};

}  // namespace vellumark::ui::win32
