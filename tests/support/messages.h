#pragma once
// Answers every message box with its default button as long as it lives, and remembers what they said. A
// dialog that comes up is an error.

#include <string>
#include <utility>
#include <vector>

#include "ui/headless/headless_toolkit.h"

namespace vellumark::test {

class Messages {
 public:
  Messages() : before_(ui::setToolkit(&toolkit_)) {
    toolkit_.observer = [this](const ui::Shown& shown) {
      constexpr const char* icons[] = {"none", "critical", "question", "exclamation", "information"};
      told_.push_back(shown.title + " [" + icons[static_cast<int>(shown.icon)] + "] " + shown.text);
    };
  }
  ~Messages() { ui::setToolkit(before_); }
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;

  /// Scripts for dialogs and other answers go here.
  ui::HeadlessToolkit& toolkit() { return toolkit_; }
  /// Each as "title [icon] text", oldest first, and forgets them.
  std::vector<std::string> take() { return std::exchange(told_, {}); }

 private:
  ui::HeadlessToolkit toolkit_;
  ui::Toolkit* before_;
  std::vector<std::string> told_;
};

}  // namespace vellumark::test
