#pragma once
// A window of the add-in, as a program can read and work it from outside.

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "ui/headless/script.h"
#include "ui/message_box.h"

namespace vellumark::app {

std::string windowText(HWND window);
std::string windowClass(HWND window);

/// A message box of the system.
class DrivenMessageBox {
 public:
  /// Nothing where the window is none.
  static std::optional<DrivenMessageBox> from(HWND window);

  std::string title() const { return windowText(window_); }
  std::string text() const;
  ui::Icon icon() const;
  /// The caption of the button that Enter presses.
  std::string defaultButton() const;
  /// The captions of all its buttons.
  std::vector<std::string> buttons() const;
  /// Presses the button of that caption, in any case; false where there is none.
  bool press(const std::string& caption) const;

 private:
  explicit DrivenMessageBox(HWND window) : window_(window) {}
  HWND window_;
};

/// A form of ours.
class DrivenForm {
 public:
  /// Nothing where the window is none.
  static std::optional<DrivenForm> from(HWND window);

  const std::string& name() const { return name_; }
  std::string title() const { return windowText(window_); }
  /// The window of a control ("tbM(2)" within an array), in any case; null where there is none.
  HWND control(const std::string& name) const;
  /// Whether somebody waits until it is closed.
  bool isModal() const { return GetPropW(window_, L"VellumarkModal") != nullptr; }
  /// Whether it came up unasked, so that it may be closed.
  bool isUnasked() const { return GetPropW(window_, L"VellumarkUnasked") != nullptr; }
  /// The texts of its labels, a line each.
  std::string labels() const;
  /// Does one step of a script. base::Error 5 where the form has no such control or it can't be used.
  void perform(const ui::DialogStep& step) const;
  /// As its close button.
  void close() const { PostMessageW(window_, WM_CLOSE, 0, 0); }

 private:
  DrivenForm(HWND window, std::string name) : window_(window), name_(std::move(name)) {}
  void performOnForm(const ui::DialogStep& step) const;
  void set(HWND control, const ui::DialogStep& step) const;
  /// The window that has the keyboard.
  HWND keyboard() const;
  void press(int key) const;
  void type(wchar_t unit) const;
  /// Lets messages happen for that many milliseconds, or until the form closes.
  void wait(int milliseconds) const;

  HWND window_;
  std::string name_;
};

}  // namespace vellumark::app
