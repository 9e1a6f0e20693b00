#pragma once

#include <QPointer>
#include <memory>
#include <vector>

#include "ui/qt/event_loops.h"
#include "ui/qt/tickers.h"
#include "ui/toolkit.h"

class QDialog;

namespace vellumark::ui {

namespace qt {
class FormWindow;
}

/// Shows forms, message boxes and dialogs on the screen with Qt.
///
/// A failure in a handler ends the innermost form and is thrown by the call that showed it; one outside of
/// any form is thrown by the next call of the toolkit.
class QtToolkit : public Toolkit {
 public:
  QtToolkit();
  ~QtToolkit() override;

  Answer messageBox(const std::string& text, Icon icon, Buttons buttons, const std::string& title,
                    int defaultButton) override;
  std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                      const std::string& defaultText) override;
  /// The path is the system's.
  std::optional<std::string> fileDialog(const FileDialog& dialog) override;
  void showModal(Form& form) override;
  void showModeless(Form& form) override;
  void startTimer(Timer& timer) override;
  void stopTimer(Timer& timer) override { tickers_.stop(timer); }
  bool onScreen() const override { return true; }
  int textWidth(const std::string& text) override;
  /// Only an X server shows it.
  Screen* wholeScreen() override;
  DesktopColor askDesktopColor(const std::function<bool()>& goesOn) override;

 private:
  int ask(QDialog& dialog);

  qt::EventLoops loops_;
  std::unique_ptr<Screen> screen_;
  qt::Tickers tickers_{loops_};
  std::vector<QPointer<qt::FormWindow>> modeless_;
};

}  // namespace vellumark::ui
