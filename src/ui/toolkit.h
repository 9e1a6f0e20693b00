#pragma once
// What shows forms and asks questions: the screen's toolkit, or a script.

#include <memory>
#include <optional>
#include <string>

#include "ui/form.h"
#include "ui/message_box.h"

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
  /// Lets the timers of a form that is loaded and never shown tick until it is unloaded.
  virtual void runHidden(Form& form) = 0;
};

/// The toolkit in use; base::Error 91 where there is none.
Toolkit& toolkit();
/// Sets the toolkit and returns the one before. The caller keeps it alive.
Toolkit* setToolkit(Toolkit* toolkit);

/// The buttons of a message box in order, as answers.
std::vector<Answer> answersOf(Buttons buttons);
/// The caption of a button ("Yes"), and the answer of a caption in any case.
std::string captionOf(Answer answer);
std::optional<Answer> answerOf(const std::string& caption);
/// What closing a box means: cancel where it has such a button, else its only or last one.
Answer closingAnswer(Buttons buttons);

}  // namespace vellumark::ui
