#pragma once
// The toolkit without a screen: dialogs are worked by scripts, boxes answered in advance.

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "ui/headless/script.h"
#include "ui/headless/scripted_screen.h"
#include "ui/toolkit.h"

namespace vellumark::ui {

/// A box or dialog that came up, and what was answered.
struct Shown {
  enum class Kind { messageBox, inputBox, fileDialog, form };
  Kind kind = Kind::messageBox;
  Icon icon = Icon::none;
  std::string title;  ///< of a form its caption
  std::string name;   ///< of a form its name
  std::string text;   ///< message or prompt; of a form that stays open its labels, a line each
  std::string
      answer;  ///< the button's caption, the text, the path, or the script's steps; empty for cancelled
  bool staysOpen = false;  ///< a form that nobody waits for
};

/// Answers by scripts and fails loudly where a dialog comes up that none is there for: base::Error 5 whose
/// description says which form or control, and what to do. Acts reach the controls as a user's do, so that a
/// disabled control can't be used and a validation that refuses ends the script with an error. A form that
/// comes up unasked is closed where the next script isn't for it.
class HeadlessToolkit : public Toolkit {
 public:
  /// A script for a form, in the order in which the forms come up. Malformed scripts raise 5 at once.
  void addDialog(const std::string& script) { dialogs_.push_back(parseDialogScript(script)); }
  /// An answer for the next message box (a button's caption), input box (a text) or file dialog (a path).
  /// Where there is none left, a box gets its default button or text, a file dialog is cancelled. The answer
  /// "Cancel" cancels all of them.
  void addAnswer(const std::string& answer) { answers_.push_back(answer); }

  /// Hears of everything that came up, when it was answered.
  std::function<void(const Shown&)> observer;
  /// Shows a form that no script is left for, on a screen; false where it can't.
  std::function<bool(Form&)> screen;
  /// The toolkit of a screen that shows what no script is left for; nullptr where there is none.
  std::function<Toolkit*()> display;
  /// The screen whose pixels a script's clicks mean.
  std::function<std::unique_ptr<Screen>()> openScreen;

  /// The screen of the forms that scripts work.
  ScriptedScreen& scriptedScreen() { return scripted_; }

  /// Chooses among the buttons of a message box that no answer is left for; without it, and where it gives
  /// nothing, the box gets its default button.
  std::function<std::optional<Answer>(const std::string& text, const std::vector<Answer>& possible)>
      unattended;

  /// Whether an answer is left for the next box or file dialog.
  bool hasAnswer() const { return !answers_.empty(); }
  /// Whether the next script is for the form of that name.
  bool hasDialogFor(const std::string& name) const;
  /// Scripts and answers that nothing asked for, as they were written.
  std::vector<std::string> unused() const;
  /// Whether a message box with the critical icon, or the form of that name, came up.
  bool sawCritical() const { return sawCritical_; }
  bool sawForm(const std::string& name) const;

  Answer messageBox(const std::string& text, Icon icon, Buttons buttons, const std::string& title,
                    int defaultButton) override;
  std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                      const std::string& defaultText) override;
  std::optional<std::string> fileDialog(const FileDialog& dialog) override;
  void showModal(Form& form) override;
  /// A modeless form is told and left alone.
  void showModeless(Form& form) override;
  void startTimer(Timer& timer) override;
  void stopTimer(Timer& timer) override;
  bool onScreen() const override { return false; }
  /// Without a font, each byte of a text counts alike.
  int textWidth(const std::string& text) override { return 7 * static_cast<int>(text.size()); }
  Screen* wholeScreen() override;
  DesktopColor askDesktopColor(const std::function<bool()>& goesOn) override;

  /// Lets that much time pass, in milliseconds. It stands still otherwise.
  void pass(int milliseconds);

 private:
  std::optional<std::string> nextAnswer();
  void tell(const Shown& shown);
  void perform(Form& form, const DialogStep& step);
  void performOnForm(Form& form, const DialogStep& step, const std::string& where);
  void showPixels(const ScreenClick& click, const std::string& where);
  void clickScreen(const ScreenClick& click, const std::string& where);
  Toolkit* shownOn() const { return dialogs_.empty() && display ? display() : nullptr; }

  struct RunningTimer {
    Timer* timer;
    std::int64_t due;
  };

  std::vector<RunningTimer> timers_;
  std::int64_t now_ = 0;
  ScriptedScreen scripted_;
  std::deque<DialogScript> dialogs_;
  std::deque<std::string> answers_;
  bool sawCritical_ = false;
  std::vector<std::string> forms_;
};

}  // namespace vellumark::ui
