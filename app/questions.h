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

/// Where a box comes up, and who answered it.
struct Circumstances {
  bool inDialog = false;    ///< a dialog waits behind it
  bool unattended = false;  ///< the program chose among several buttons
};

/// Answers what comes up while it lives, dialogs by the given scripts. For the command, from begin() on,
/// boxes get the given answers, and what comes up counts. A question that has no answer gets the one that
/// changes nothing.
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
  /// A Failure where the command refused its work: a box said that something is impossible, or said anything
  /// at all and the command `changed` nothing. What a dialog says while it is open is between it and whoever
  /// works it.
  void requireAccepted(const std::string& name, bool changed) const;
  /// What the first error report says; empty where none came up.
  const std::string& errorReport() const { return errorReport_; }
  /// How all ended, the save included. Answers that nothing asked for are told.
  Exit settle(const std::string& name) const;

 protected:
  /// Makes the given answers to boxes ready, in the order in which they are asked for.
  virtual void arm() = 0;
  /// The answers that nothing asked for.
  virtual std::vector<std::string> unused() const = 0;

  /// The buttons that a message box gets where nothing answers it, the first that it has; its default one
  /// where it has none of them.
  static std::vector<std::string> unattendedAnswers(const std::string& text);
  /// Tells what came up, what it was answered, or `otherwise` where it has no answer, and counts it.
  void note(ui::Shown shown, const std::string& otherwise = "not answered", Circumstances circumstances = {});
  /// An error report came up. The first tells of the cause.
  void noteErrorReport(const std::string& description) {
    if (errorReport_.empty()) errorReport_ = description;
  }
  /// A dialog for files got no answer: notes that and raises it.
  [[noreturn]] void raiseUnanswered(const ui::FileDialog& dialog);
  /// A dialog got no answer that closes it.
  void noteUnanswered(const base::Error& why) { unanswered_ = why; }
  const std::optional<base::Error>& unanswered() const { return unanswered_; }

 private:
  bool counting_ = false;
  bool critical_ = false;                  ///< whether a critical box came up outside dialogs
  bool told_ = false;                      ///< whether any notice did
  std::string errorReport_;                ///< what the first error report says
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
