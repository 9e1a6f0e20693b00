#pragma once
// What shows forms and asks questions: the screen's toolkit, or a script.

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "ui/form.h"
#include "ui/message_box.h"
#include "ui/screen.h"

namespace vellumark::ui {

class Toolkit {
 public:
  virtual ~Toolkit() = default;
  virtual Answer messageBox(const std::string& text, Icon icon, Buttons buttons, const std::string& title,
                            int defaultButton) = 0;
  virtual std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                              const std::string& defaultText) = 0;
  virtual std::optional<std::string> fileDialog(const FileDialog& dialog) = 0;
  /// Shows a form that is visible and loaded, and returns when it no longer is.
  virtual void showModal(Form& form) = 0;
  /// Shows a form and returns at once.
  virtual void showModeless(Form& form) = 0;
  /// Calls tick() of a timer, whose interval doesn't change meanwhile, until it is stopped.
  virtual void startTimer(Timer& timer) = 0;
  virtual void stopTimer(Timer& timer) = 0;
  /// Whether somebody sees what it shows.
  virtual bool onScreen() const = 0;
  /// The width of a text on one line in the font of forms, in the toolkit's pixels.
  virtual int textWidth(const std::string& text) = 0;
  /// All that is shown, by whatever program; nullptr where the system lets no program see it.
  virtual Screen* wholeScreen() = 0;
  /// Asks the desktop for a colour of the screen, for where wholeScreen() is none, and waits. `goesOn` is
  /// called again and again meanwhile; false gives up.
  virtual DesktopColor askDesktopColor(const std::function<bool()>& goesOn) = 0;
};

/// The toolkit in use; base::Error 91 where there is none.
Toolkit& toolkit();
/// Sets the toolkit and returns the one before. The caller keeps it alive. Timers that run go over to it.
Toolkit* setToolkit(Toolkit* toolkit);

/// For timers: from now on, or no longer, they run in the toolkit in use, whichever that is.
void startTimer(Timer& timer);
void stopTimer(Timer& timer);

/// The buttons of a message box in order, as answers.
std::vector<Answer> answersOf(Buttons buttons);
/// The caption of a button ("Yes"), and the answer of a caption in any case.
std::string captionOf(Answer answer);
std::optional<Answer> answerOf(const std::string& caption);
/// What closing a box means: cancel where it has such a button, else its only or last one.
Answer closingAnswer(Buttons buttons);

}  // namespace vellumark::ui
