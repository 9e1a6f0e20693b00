#include "ui/win32/win32_toolkit.h"

#include <algorithm>

#include "ui/win32/conversions.h"
#include "ui/win32/file_dialogs.h"
#include "ui/win32/font_measurer.h"
#include "ui/win32/input_form.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {
namespace {

UINT flagsOf(Icon icon) {
  switch (icon) {
    case Icon::critical:
      return MB_ICONERROR;
    case Icon::question:
      return MB_ICONQUESTION;
    case Icon::exclamation:
      return MB_ICONWARNING;
    case Icon::information:
      return MB_ICONINFORMATION;
    case Icon::none:
      break;
  }
  return 0;
}

UINT flagsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::ok:
      return MB_OK;
    case Buttons::okCancel:
      return MB_OKCANCEL;
    case Buttons::abortRetryIgnore:
      return MB_ABORTRETRYIGNORE;
    case Buttons::yesNoCancel:
      return MB_YESNOCANCEL;
    case Buttons::yesNo:
      return MB_YESNO;
    case Buttons::retryCancel:
      return MB_RETRYCANCEL;
  }
  return MB_OK;
}

}  // namespace

Win32Toolkit::Win32Toolkit() : class_(resources_) {
  const VisualStyles styles(resources_);
  INITCOMMONCONTROLSEX kinds = {};
  kinds.dwSize = sizeof kinds;
  kinds.dwICC = ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES | ICC_UPDOWN_CLASS |
                ICC_PROGRESS_CLASS | ICC_BAR_CLASSES;
  InitCommonControlsEx(&kinds);
}

Win32Toolkit::~Win32Toolkit() = default;

Answer Win32Toolkit::messageBox(const std::string& text, Icon icon, Buttons buttons, const std::string& title,
                                int defaultButton) {
  const std::vector<Answer> answers = answersOf(buttons);
  const auto place = static_cast<UINT>(std::clamp(defaultButton, 1, static_cast<int>(answers.size())) - 1);
  const VisualStyles styles(resources_);
  HWND owner = ownerWindow();
  const Modality modality(owner);
  const int button = MessageBoxW(owner, toWide(text).c_str(), toWide(title).c_str(),
                                 flagsOf(icon) | flagsOf(buttons) | place * MB_DEFBUTTON2);
  loops_.rethrow();
  // The system counts the buttons as answers are counted. A box that is closed may answer with one that it
  // lacks.
  const auto answer = static_cast<Answer>(button);
  const bool known = std::find(answers.begin(), answers.end(), answer) != answers.end();
  return known ? answer : closingAnswer(buttons);
}

std::optional<std::string> Win32Toolkit::inputBox(const std::string& prompt, const std::string& title,
                                                  const std::string& defaultText) {
  InputForm form(prompt, title, defaultText);
  form.showModal();
  return form.answer();
}

std::optional<std::string> Win32Toolkit::fileDialog(const FileDialog& dialog) {
  const VisualStyles styles(resources_);
  HWND owner = ownerWindow();
  const Modality modality(owner);
  auto path = dialog.kind == FileDialog::Kind::folder ? askFolder(dialog, owner) : askFile(dialog, owner);
  loops_.rethrow();
  return path;
}

void Win32Toolkit::showModal(Form& form) { FormWindow(form, loops_, resources_).runModal(); }

void Win32Toolkit::showModeless(Form& form) {
  FormWindow& window = *modeless_.emplace_back(std::make_unique<FormWindow>(form, loops_, resources_));
  window.runModeless([this](FormWindow& gone) {
    std::erase_if(modeless_, [&](const auto& each) { return each.get() == &gone; });
  });
}

int Win32Toolkit::textWidth(const std::string& text) {
  return FontMeasurer(resources_, 1).text(text, 1, false, 0).width;
}

}  // namespace vellumark::ui::win32
