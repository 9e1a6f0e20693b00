#pragma once

#include <memory>
#include <vector>

#include "ui/toolkit.h"
#include "ui/win32/event_loops.h"
#include "ui/win32/form_window.h"
#include "ui/win32/resources.h"
#include "ui/win32/tickers.h"
#include "ui/win32/whole_screen.h"

namespace vellumark::ui::win32 {

/// Shows forms, message boxes and dialogs with the system's own windows.
///
/// A failure in a handler ends the innermost modal form and is thrown by the call that showed it. A form that
/// nobody waits for keeps its handlers' failures to itself. All calls come from one thread, and the toolkit
/// leaves nothing behind when it goes.
class Win32Toolkit : public Toolkit {
 public:
  Win32Toolkit();
  ~Win32Toolkit() override;

  Answer messageBox(const std::string& text, Icon icon, Buttons buttons, const std::string& title,
                    int defaultButton) override;
  std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                      const std::string& defaultText) override;
  std::optional<std::string> fileDialog(const FileDialog& dialog) override;
  void showModal(Form& form) override;
  void showModeless(Form& form) override;
  void startTimer(Timer& timer) override { tickers_.start(timer); }
  void stopTimer(Timer& timer) override { tickers_.stop(timer); }
  bool onScreen() const override { return true; }
  int textWidth(const std::string& text) override;
  Screen* wholeScreen() override { return &screen_; }
  /// Never needed: the screen can be seen.
  DesktopColor askDesktopColor(const std::function<bool()>&) override { return {}; }

 private:
  Resources resources_;
  FormClass class_;
  WholeScreen screen_{resources_.instance()};
  EventLoops loops_;
  Tickers tickers_{loops_, resources_};
  std::vector<std::unique_ptr<FormWindow>> modeless_;
};

}  // namespace vellumark::ui::win32
