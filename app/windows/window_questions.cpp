#include "windows/window_questions.h"

#include <algorithm>
#include <deque>
#include <set>

#include "base/text.h"
#include "platform/environment.h"
#include "windows/driven_window.h"

namespace vellumark::app {
namespace {

constexpr UINT interval = 15;  // milliseconds between two looks

class WindowQuestions : public Questions {
 public:
  WindowQuestions(const std::vector<std::string>& dialogs, const std::vector<std::string>& answers)
      : answers_(answers.begin(), answers.end()) {
    try {
      for (const std::string& dialog : dialogs) dialogs_.push_back(ui::parseDialogScript(dialog));
    } catch (const base::Error& error) {
      throw Failure(Exit::usage, "--dialog: " + error.description());
    }
    // Modal loops hand out timers like any other message, so this looks on while the add-in waits in one.
    current() = this;
    timer_ = SetTimer(nullptr, 0, interval, [](HWND, UINT, UINT_PTR, DWORD) {
      if (current() != nullptr) current()->look();
    });
  }
  ~WindowQuestions() override {
    KillTimer(nullptr, timer_);
    current() = nullptr;
  }

 private:
  std::optional<std::string> file(const ui::FileDialog& dialog) override {
    if (!armed_ || answers_.empty()) raiseUnanswered(dialog);
    std::optional<std::string> path = answers_.front();
    answers_.pop_front();
    if (base::equalsIgnoreCase(*path, "Cancel")) path.reset();
    note({ui::Shown::Kind::fileDialog,
          ui::Icon::none,
          dialog.title,
          {},
          dialog.initialPath,
          path.value_or("")},
         "cancelled");
    return path;
  }

  static WindowQuestions*& current() {
    static WindowQuestions* one = nullptr;
    return one;
  }

  void arm() override { armed_ = true; }

  std::vector<std::string> unused() const override {
    std::vector<std::string> texts;
    for (const ui::DialogScript& dialog : dialogs_) texts.push_back(dialog.text);
    texts.insert(texts.end(), answers_.begin(), answers_.end());
    return texts;
  }

  void look() {
    std::vector<HWND> windows;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM context) -> BOOL {
          if (IsWindowVisible(window) && IsWindowEnabled(window)) {
            reinterpret_cast<std::vector<HWND>*>(context)->push_back(window);
          }
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    std::erase_if(handled_, [](HWND window) { return !IsWindow(window); });
    for (const HWND window : windows) {
      if (!IsWindow(window) || handled_.contains(window)) continue;
      if (const auto box = DrivenMessageBox::from(window)) {
        handled_.insert(window);
        answer(*box);
      } else if (const auto form = DrivenForm::from(window)) {
        handled_.insert(window);
        work(*form);
      }
    }
  }

  /// Whether a dialog waits, behind a box or not.
  static bool dialogIsOpen() {
    bool open = false;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM found) -> BOOL {
          const auto form = IsWindowVisible(window) ? DrivenForm::from(window) : std::nullopt;
          if (form && form->isModal()) *reinterpret_cast<bool*>(found) = true;
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&open));
    return open;
  }

  static std::string unattendedAnswer(const DrivenMessageBox& box) {
    const std::vector<std::string> buttons = box.buttons();
    for (const std::string& caption : unattendedAnswers(box.text())) {
      if (std::ranges::find(buttons, caption) != buttons.end()) return caption;
    }
    return box.defaultButton();
  }

  void answer(const DrivenMessageBox& box) {
    ui::Shown shown;
    shown.kind = ui::Shown::Kind::messageBox;
    shown.icon = box.icon();
    shown.title = box.title();
    shown.text = box.text();
    const bool given = armed_ && !answers_.empty();
    if (given) {
      shown.answer = answers_.front();
      answers_.pop_front();
    } else {
      shown.answer = unattendedAnswer(box);
    }
    note(shown, "not answered",
         {.inDialog = dialogIsOpen(), .unattended = !given && box.buttons().size() > 1});
    if (!box.press(shown.answer)) {
      noteUnanswered(
          base::Error(base::errors::invalidCall, "the message box has no button \"" + shown.answer + "\""));
      box.press(box.defaultButton());
    }
  }

  void work(const DrivenForm& form) {
    if (form.name() == errorForm) {
      const HWND label = form.control(errorLabel);
      noteErrorReport(label != nullptr ? windowText(label) : "an unexpected error has occurred");
    }
    ui::Shown shown;
    shown.kind = ui::Shown::Kind::form;
    shown.title = form.title();
    shown.name = form.name();
    const bool scripted = !dialogs_.empty() && base::equalsIgnoreCase(dialogs_.front().form, form.name());
    if (!scripted && !form.isModal()) {
      shown.staysOpen = true;
      shown.text = form.labels();
      note(shown);
      return;
    }
    if (!scripted && platform::environmentVariable("VELLUMARK_SHOW") == "1") {
      note(shown, "shown on the display");
      return;
    }
    if (!scripted) {
      note(shown);
      if (form.name() != errorForm && !form.isUnasked()) {
        noteUnanswered(
            base::Error(base::errors::invalidCall, "the dialog " + form.name() +
                                                       " came up and nothing answers it; give --dialog '" +
                                                       form.name() + ": ...'"));
      }
      form.close();
      return;
    }
    const ui::DialogScript script = dialogs_.front();
    dialogs_.pop_front();
    shown.answer = script.text;
    note(shown);
    try {
      for (const ui::DialogStep& step : script.steps) form.perform(step);
    } catch (const base::Error& error) {
      noteUnanswered(error);
      form.close();
    }
  }

  std::deque<ui::DialogScript> dialogs_;
  std::deque<std::string> answers_;
  std::set<HWND> handled_;
  bool armed_ = false;
  UINT_PTR timer_ = 0;
};

}  // namespace

std::unique_ptr<Questions> windowQuestions(std::vector<std::string> dialogs,
                                           std::vector<std::string> answers) {
  return std::make_unique<WindowQuestions>(dialogs, answers);
}

}  // namespace vellumark::app
