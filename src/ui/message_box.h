#pragma once
// Questions that the toolkit asks on its own: message box, input box and file dialog. All are modal and
// blocking.

#include <optional>
#include <string>
#include <vector>

namespace vellumark::ui {

enum class Icon { none, critical, question, exclamation, information };
enum class Buttons { ok, okCancel, abortRetryIgnore, yesNoCancel, yesNo, retryCancel };
/// The numbers that the host's own message boxes give.
enum class Answer { ok = 1, cancel = 2, abort = 3, retry = 4, ignore = 5, yes = 6, no = 7 };

/// Shows `text` and waits for a button. `defaultButton` counts from 1. Closing the box answers cancel where
/// there is such a button, otherwise the only or last one.
Answer messageBox(const std::string& text, Icon icon, Buttons buttons, const std::string& title,
                  int defaultButton = 1);

/// Asks for one line of text; nothing where the user cancels.
std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                    const std::string& defaultText = {});

struct FileDialog {
  enum class Kind { open, save, folder };
  struct Filter {
    std::string description;  ///< "PowerPoint presentations"
    std::string patterns;     ///< "*.pptx;*.ppt"
  };
  Kind kind = Kind::open;
  std::string title;
  std::string initialPath;
  std::vector<Filter> filters;
  std::string defaultExtension;  ///< without the dot
};

/// Asks for one path; nothing where the user cancels.
std::optional<std::string> fileDialog(const FileDialog& dialog);

}  // namespace vellumark::ui
