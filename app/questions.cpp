#include "questions.h"

#include "base/text.h"
#include "commands/save_questions.h"
#include "console.h"

namespace vellumark::app {
namespace {

std::string iconName(ui::Icon icon) {
  switch (icon) {
    case ui::Icon::critical:
      return " (critical)";
    case ui::Icon::question:
      return " (question)";
    case ui::Icon::exclamation:
      return " (exclamation)";
    case ui::Icon::information:
      return " (information)";
    default:
      return "";
  }
}

std::string heading(const ui::Shown& shown) {
  switch (shown.kind) {
    case ui::Shown::Kind::messageBox:
      return "message box" + iconName(shown.icon);
    case ui::Shown::Kind::inputBox:
      return "input box";
    case ui::Shown::Kind::fileDialog:
      return "file dialog";
    default:
      return "dialog " + shown.name;
  }
}

/// The lines of a text, indented.
std::string indented(const std::string& text) {
  std::string lines;
  for (const std::string& line : base::split(base::replaceAll(text, "\r", ""), '\n')) {
    if (!line.empty()) lines += "  " + oneLine(line) + "\n";
  }
  return lines;
}

}  // namespace

void Questions::begin() {
  counting_ = true;
  errorReport_.clear();
  unanswered_.reset();  // what came up while the add-in started isn't the command's
  arm();
}

// Saving is what the program was asked for, so that hidden shapes are saved as they are.
std::vector<std::string> Questions::unattendedAnswers(const std::string& text) {
  if (text.ends_with(commands::hiddenShapesQuestion)) return {"Yes"};
  return {"No", "Cancel"};
}

void Questions::note(ui::Shown shown, const std::string& otherwise, Circumstances circumstances) {
  const bool isForm = shown.kind == ui::Shown::Kind::form;
  if (isForm && shown.name == errorForm) shown.text = errorReport_;
  const std::string answer =
      (shown.answer.empty() ? otherwise : "answered: " + oneLine(shown.answer)) +
      (circumstances.unattended ? ", because nothing else was said; --answer chooses another button" : "");
  tell(heading(shown) + ", \"" + oneLine(shown.title) + "\"\n" + indented(shown.text) +
       (shown.staysOpen ? "" : "  " + answer + "\n"));
  const bool isNotice =
      shown.kind == ui::Shown::Kind::messageBox && shown.answer == "OK" && shown.icon != ui::Icon::question;
  const bool isWarning = shown.text == commands::temporaryFolderWarning;
  if (!counting_ || circumstances.inDialog || !isNotice || isWarning) return;
  told_ = true;
  critical_ = critical_ || shown.icon == ui::Icon::critical;
}

void Questions::raiseUnanswered(const ui::FileDialog& dialog) {
  note({ui::Shown::Kind::fileDialog, ui::Icon::none, dialog.title, {}, dialog.initialPath, {}});
  noteUnanswered(base::Error(base::errors::invalidCall,
                             "the file dialog '" + dialog.title +
                                 "' is not answered; give it a path with --answer FILE, or --answer Cancel"));
  throw *unanswered_;
}

void Questions::requireWhole(const std::string& name) const {
  std::vector<std::string> told;
  if (!errorReport_.empty()) told.push_back(errorReport_);
  if (unanswered_) told.push_back(unanswered_->description());
  if (told.empty()) return;
  throw Failure(Exit::refused, name + ": broke off, nothing is written: " + base::join(told, "; "));
}

void Questions::requireAccepted(const std::string& name, bool changed) const {
  if (critical_ || (told_ && !changed)) {
    throw Failure(Exit::refused,
                  name + ": could not do its work, nothing is written; the message above says why");
  }
}

Exit Questions::settle(const std::string& name) const {
  for (const std::string& answer : unused()) {
    tell("never asked for: \"" + oneLine(answer) + "\"\n");
  }
  if (errorReport_.empty()) return Exit::done;
  tellFailure(name + ": done and written, but saving met an error: " + errorReport_);
  return Exit::refused;
}

}  // namespace vellumark::app
