#include <unistd.h>

#include <utility>

#include "base/xml_storable.h"
#include "console.h"
#include "platform/ansi.h"
#include "platform/environment.h"
#include "platform/library.h"
#include "questions.h"

namespace vellumark::app {
namespace {

/// Whether somebody sits in front of a display.
bool hasDisplay() {
  using platform::environmentVariable;
  constexpr int standardError = 2;
  if (!environmentVariable("WAYLAND_DISPLAY") && !environmentVariable("DISPLAY")) return false;
  return isatty(standardError) || environmentVariable("VELLUMARK_SHOW") == "1";
}

/// The toolkit of the display; nothing where there is none. It is loaded only when it is asked for, because
/// that takes longer than everything else that the program does.
ui::Toolkit* displayToolkit() {
  if (!hasDisplay()) return nullptr;
  try {
    const auto library = platform::Library::besideExecutable("vellumark_qt");
    return library.function<ui::Toolkit*()>("vellumark_create_qt_toolkit")();
  } catch (const base::Error& error) {
    tell("  can't be shown: " + oneLine(error.description()) + "\n");
    return nullptr;
  }
}

/// What the display shows; nothing where there is none that can be seen.
std::unique_ptr<ui::Screen> openWholeScreen() {
  try {
    const auto library = platform::Library::besideExecutable("vellumark_qt");
    return std::unique_ptr<ui::Screen>(library.function<ui::Screen*()>("vellumark_open_screen")());
  } catch (const base::Error& error) {
    tell("  the screen can't be seen: " + oneLine(error.description()) + "\n");
    return nullptr;
  }
}

/// Shows a form on the display; false where that can't be.
bool showOnDisplay(ui::Form& form) {
  ui::Toolkit* screen = displayToolkit();
  if (!screen) return false;
  // What the form asks belongs on the display as well.
  ui::Toolkit* before = ui::setToolkit(screen);
  screen->showModal(form);
  ui::setToolkit(before);
  return true;
}

/// The toolkit of the program while it lives.
class ScriptedQuestions : public Questions, private ui::HeadlessToolkit {
 public:
  ScriptedQuestions(const std::vector<std::string>& dialogs, std::vector<std::string> answers)
      : answers_(std::move(answers)) {
    try {
      // For what comes up as the add-in starts, too.
      for (const std::string& dialog : dialogs) addDialog(platform::fromAnsiOrUtf8(dialog));
    } catch (const base::Error& error) {
      throw Failure(Exit::usage, "--dialog: " + error.description());
    }
    observer = [this](const ui::Shown& shown) {
      const bool form = shown.kind == ui::Shown::Kind::form;
      note(shown,
           !form          ? "cancelled"
           : hasDisplay() ? "shown on the display"
                          : "not answered",
           {.inDialog = openDialogs_ > 0, .unattended = std::exchange(unattended_, false)});
    };
    unattended = [this](const std::string& text, const std::vector<ui::Answer>& possible) {
      unattended_ = possible.size() > 1;
      return chooseUnattended(text, possible);
    };
    screen = showOnDisplay;
    display = displayToolkit;
    openScreen = openWholeScreen;
    before_ = ui::setToolkit(this);
  }
  ~ScriptedQuestions() override { ui::setToolkit(before_); }

  std::optional<std::string> file(const ui::FileDialog& dialog) override { return fileDialog(dialog); }

 private:
  void arm() override {
    for (const std::string& answer : answers_) addAnswer(answer);
  }
  std::vector<std::string> unused() const override { return HeadlessToolkit::unused(); }

  void showModal(ui::Form& form) override {
    // A dialog that nobody answers is a failure, which the traps on its way report in further dialogs: once
    // is enough.
    if (unanswered()) throw *unanswered();
    if (form.name() == errorForm) {
      const auto* description = dynamic_cast<const ui::Label*>(form.find(errorLabel));
      noteErrorReport(description ? description->caption() : "an unexpected error has occurred");
      // One that nobody reads is told and closed.
      if (!hasDialogFor(errorForm) && !hasDisplay()) {
        note({ui::Shown::Kind::form, ui::Icon::none, form.caption(), form.name(), {}, {}});
        return;
      }
    }
    ++openDialogs_;
    try {
      HeadlessToolkit::showModal(form);
    } catch (const base::Error& error) {
      --openDialogs_;
      noteUnanswered(error);
      throw;
    }
    --openDialogs_;
  }

  /// Answers are taken as they are, since they may be paths; here one is a text.
  std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                      const std::string& defaultText) override {
    const auto answer = HeadlessToolkit::inputBox(prompt, title, defaultText);
    return answer ? std::optional(base::xmlStorable(platform::fromAnsiOrUtf8(*answer))) : std::nullopt;
  }

  /// A dialog for files has no answer of its own.
  std::optional<std::string> fileDialog(const ui::FileDialog& dialog) override {
    if (unanswered()) throw *unanswered();
    if (hasAnswer()) return HeadlessToolkit::fileDialog(dialog);
    ui::Toolkit* display = displayToolkit();
    if (!display) raiseUnanswered(dialog);
    std::optional<std::string> path = display->fileDialog(dialog);
    note({ui::Shown::Kind::fileDialog,
          ui::Icon::none,
          dialog.title,
          {},
          dialog.initialPath,
          path.value_or("")},
         "cancelled");
    return path;
  }

  static std::optional<ui::Answer> chooseUnattended(const std::string& text,
                                                    const std::vector<ui::Answer>& possible) {
    for (const std::string& caption : unattendedAnswers(text)) {
      for (const ui::Answer answer : possible) {
        if (ui::captionOf(answer) == caption) return answer;
      }
    }
    return std::nullopt;
  }

  std::vector<std::string> answers_;
  int openDialogs_ = 0;
  bool unattended_ = false;  ///< the next box was answered for somebody
  ui::Toolkit* before_ = nullptr;
};

}  // namespace

std::unique_ptr<Questions> scriptedQuestions(std::vector<std::string> dialogs,
                                             std::vector<std::string> answers) {
  return std::make_unique<ScriptedQuestions>(dialogs, std::move(answers));
}

}  // namespace vellumark::app
