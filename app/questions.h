#pragma once
// The message boxes and dialogs of a run: answered in advance and told on standard error.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "failure.h"
#include "ui/headless/headless_toolkit.h"

namespace vellumark::app {

/// Answers what comes up while it lives, dialogs by the given scripts. While the add-in starts, boxes get
/// their default answer; for the command, from begin() on, they get the given ones, and what comes up counts.
class Questions {
 public:
  Questions() = default;
  virtual ~Questions() = default;
  Questions(const Questions&) = delete;
  Questions& operator=(const Questions&) = delete;

  /// The command comes next.
  void begin();
  /// Asks for a path; nothing where the user cancels. A base::Error where nothing answers.
  virtual std::optional<std::string> file(const ui::FileDialog& dialog) = 0;

  /// A Failure where an error report came up, or a dialog that nothing answers: the command `name` broke off,
  /// and what it did is half done.
  void requireWhole(const std::string& name) const;
  /// How the command `name` ended: refused where it showed a critical box. Answers that nothing asked for are
  /// told.
  Exit settle(const std::string& name) const;

 protected:
  /// Makes the given answers to boxes ready, in the order in which they are asked for.
  virtual void arm() = 0;
  /// The answers that nothing asked for.
  virtual std::vector<std::string> unused() const = 0;

  /// Tells what came up, what it was answered, or `otherwise` where it has no answer, and counts it.
  void note(ui::Shown shown, const std::string& otherwise = "not answered");
  /// An error report came up.
  void noteErrorReport(const std::string& description) { errorReport_ = description; }
  /// A dialog for files got no answer: notes that and raises it.
  [[noreturn]] void raiseUnanswered(const ui::FileDialog& dialog);
  /// A dialog got no answer that closes it.
  void noteUnanswered(const base::Error& why) { unanswered_ = why; }
  const std::optional<base::Error>& unanswered() const { return unanswered_; }

 private:
  bool counting_ = false;
  bool critical_ = false;                  ///< whether a critical box came up
  std::string errorReport_;                ///< what the last error report says
  std::optional<base::Error> unanswered_;  ///< why a dialog got no answer that closes it
};

/// Name of the dialog that reports errors, and of the label in it that describes the error.
inline constexpr const char* errorForm = "ErrForm";
inline constexpr const char* errorLabel = "errDescription";

/// Makes the answers to dialogs and to boxes. A Failure of usage for a script that makes no sense.
using QuestionsMaker = std::function<std::unique_ptr<Questions>(std::vector<std::string> dialogs,
                                                                std::vector<std::string> answers)>;

/// Answers from the scripts alone, and shows only what nothing answers on the display, where somebody sits
/// before one.
std::unique_ptr<Questions> scriptedQuestions(std::vector<std::string> dialogs,
                                             std::vector<std::string> answers);

}  // namespace vellumark::app
