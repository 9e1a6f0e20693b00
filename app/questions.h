#pragma once
// The message boxes and dialogs of a run: answered in advance, told on standard error, and only where nothing
// answers a dialog shown on the display.

#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "failure.h"
#include "ui/headless/headless_toolkit.h"

namespace vellumark::app {

/// The toolkit of the program while it lives. While the add-in starts, boxes get their default answer; for
/// the command, from begin() on, they get the given ones, and what comes up counts.
class Questions {
 public:
  /// Answers in the order in which they are asked for. A Failure of usage for a script that makes no sense.
  explicit Questions(std::vector<std::string> dialogs = {}, std::vector<std::string> answers = {});
  ~Questions();
  Questions(const Questions&) = delete;
  Questions& operator=(const Questions&) = delete;

  /// The command comes next.
  void begin();

  /// A Failure where an error report came up, or a dialog that nothing answers: the command `name` broke off,
  /// and what it did is half done.
  void requireWhole(const std::string& name) const;
  /// How the command `name` ended: refused where it showed a critical box. Answers that nothing asked for are
  /// told.
  Exit settle(const std::string& name) const;

 private:
  class Toolkit : public ui::HeadlessToolkit {
   public:
    Toolkit();
    void showModal(ui::Form& form) override;

    bool counting = false;
    bool critical = false;                  ///< whether a critical box came up
    std::string errorReport;                ///< what the last error report says
    std::optional<base::Error> unanswered;  ///< why a dialog got no answer that closes it

   private:
    void note(ui::Shown shown);
  };

  std::vector<std::string> dialogs_, answers_;
  Toolkit toolkit_;
  ui::Toolkit* before_;
};

}  // namespace vellumark::app
