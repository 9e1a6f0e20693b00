#include "questions.h"

#include <unistd.h>

#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "console.h"
#include "platform/environment.h"
#include "platform/library.h"

namespace vellumark::app {
namespace {

constexpr std::string_view errorForm = "ErrForm";

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

/// Whether somebody sits in front of a display.
bool hasDisplay() {
  using platform::environmentVariable;
  if (!environmentVariable("WAYLAND_DISPLAY") && !environmentVariable("DISPLAY")) return false;
  return isatty(STDERR_FILENO) || environmentVariable("VELLUMARK_SHOW") == "1";
}

void tellShown(const ui::Shown& shown) {
  const std::string answer = !shown.answer.empty() ? "answered: " + oneLine(shown.answer)
                             : shown.kind == ui::Shown::Kind::form && hasDisplay() ? "shown on the display"
                                                                                   : "not answered";
  tell(heading(shown) + ", \"" + oneLine(shown.title) + "\"\n" + indented(shown.text) + "  " + answer + "\n");
}

/// Shows a form on the display; false where that can't be. The toolkit for it is loaded only now, because
/// that takes longer than everything else that the program does.
bool showOnDisplay(ui::Form& form) {
  if (!hasDisplay()) return false;
  ui::Toolkit* screen = nullptr;
  try {
    const auto library = platform::Library::besideExecutable("vellumark_qt");
    screen = library.function<ui::Toolkit*()>("vellumark_create_qt_toolkit")();
  } catch (const base::Error& error) {
    tell("  can't be shown: " + oneLine(error.description()) + "\n");
    return false;
  }
  // What the form asks belongs on the display as well.
  ui::Toolkit* before = ui::setToolkit(screen);
  screen->showModal(form);
  ui::setToolkit(before);
  return true;
}

}  // namespace

Questions::Toolkit::Toolkit() {
  observer = [this](const ui::Shown& shown) { note(shown); };
  screen = showOnDisplay;
}

void Questions::Toolkit::note(ui::Shown shown) {
  const bool isReport = shown.kind == ui::Shown::Kind::form && shown.name == errorForm;
  if (isReport) shown.text = errorReport;
  tellShown(shown);
  critical =
      critical || (counting && shown.kind == ui::Shown::Kind::messageBox && shown.icon == ui::Icon::critical);
}

void Questions::Toolkit::showModal(ui::Form& form) {
  // A dialog that nobody answers is a failure, which the traps on its way report in further dialogs: once is
  // enough.
  if (unanswered) throw *unanswered;
  if (form.name() == errorForm) {
    const auto* description = dynamic_cast<const ui::Label*>(form.find("errDescription"));
    errorReport = description ? description->caption() : "an unexpected error has occurred";
  }
  try {
    HeadlessToolkit::showModal(form);
  } catch (const base::Error& error) {
    unanswered = error;
    throw;
  }
}

Questions::Questions(std::vector<std::string> dialogs, std::vector<std::string> answers)
    : dialogs_(std::move(dialogs)), answers_(std::move(answers)), before_(ui::setToolkit(&toolkit_)) {
  try {
    for (const std::string& dialog : dialogs_) ui::parseDialogScript(dialog);
  } catch (const base::Error& error) {
    ui::setToolkit(before_);
    throw Failure(Exit::usage, "--dialog: " + error.description());
  }
}

Questions::~Questions() { ui::setToolkit(before_); }

void Questions::begin() {
  for (const std::string& dialog : dialogs_) toolkit_.addDialog(dialog);
  for (const std::string& answer : answers_) toolkit_.addAnswer(answer);
  toolkit_.counting = true;
  toolkit_.errorReport.clear();
}

void Questions::requireWhole(const std::string& name) const {
  std::vector<std::string> told;
  if (!toolkit_.errorReport.empty()) told.push_back(toolkit_.errorReport);
  if (toolkit_.unanswered) told.push_back(toolkit_.unanswered->description());
  if (told.empty()) return;
  throw Failure(Exit::refused, name + ": broke off, nothing is written: " + base::join(told, "; "));
}

Exit Questions::settle(const std::string& name) const {
  for (const std::string& answer : toolkit_.unused()) {
    tell("never asked for: \"" + oneLine(answer) + "\"\n");
  }
  if (!toolkit_.critical) return Exit::done;
  tellFailure(name + ": could not do all of its work; the message above says why");
  return Exit::refused;
}

}  // namespace vellumark::app
