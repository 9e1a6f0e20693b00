#pragma once

#include <optional>
#include <string>

#include "ui/form.h"

namespace vellumark::ui::win32 {

/// Asks for one line of text.
class InputForm : public Form {
 public:
  InputForm(const std::string& prompt, const std::string& title, const std::string& defaultText);
  /// What was entered; nothing where the user cancelled.
  const std::optional<std::string>& answer() const { return answer_; }

 private:
  Label lPrompt{*this, "lPrompt"};
  TextBox tbText{*this, "tbText"};
  CommandButton btnOK{*this, "btnOK", "OK"};
  CommandButton btnCancel{*this, "btnCancel", "Cancel"};
  std::optional<std::string> answer_;
};

}  // namespace vellumark::ui::win32
