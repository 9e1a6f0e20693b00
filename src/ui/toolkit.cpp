#include "ui/toolkit.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "base/text.h"

namespace vellumark::ui {
namespace {

Toolkit*& current() {
  static Toolkit* toolkit = nullptr;
  return toolkit;
}

/// The timers that run, in whatever toolkit.
std::vector<Timer*>& running() {
  static std::vector<Timer*> timers;
  return timers;
}

constexpr std::pair<Answer, const char*> captions[] = {{Answer::ok, "OK"},         {Answer::cancel, "Cancel"},
                                                       {Answer::abort, "Abort"},   {Answer::retry, "Retry"},
                                                       {Answer::ignore, "Ignore"}, {Answer::yes, "Yes"},
                                                       {Answer::no, "No"}};

}  // namespace

Toolkit& toolkit() {
  if (!current()) base::raise(base::errors::objectNotSet);
  return *current();
}

Toolkit* setToolkit(Toolkit* toolkit) {
  Toolkit* before = std::exchange(current(), toolkit);
  for (Timer* timer : running()) {
    if (before) before->stopTimer(*timer);
    if (toolkit) toolkit->startTimer(*timer);
  }
  return before;
}

void startTimer(Timer& timer) {
  running().push_back(&timer);
  if (current()) current()->startTimer(timer);
}

void stopTimer(Timer& timer) {
  std::erase(running(), &timer);
  if (current()) current()->stopTimer(timer);
}

Answer messageBox(const std::string& text, Icon icon, Buttons buttons, const std::string& title,
                  int defaultButton) {
  return toolkit().messageBox(text, icon, buttons, title, defaultButton);
}

std::optional<std::string> inputBox(const std::string& prompt, const std::string& title,
                                    const std::string& defaultText) {
  return toolkit().inputBox(prompt, title, defaultText);
}

std::optional<std::string> fileDialog(const FileDialog& dialog) { return toolkit().fileDialog(dialog); }

std::vector<Answer> answersOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::okCancel:
      return {Answer::ok, Answer::cancel};
    case Buttons::abortRetryIgnore:
      return {Answer::abort, Answer::retry, Answer::ignore};
    case Buttons::yesNoCancel:
      return {Answer::yes, Answer::no, Answer::cancel};
    case Buttons::yesNo:
      return {Answer::yes, Answer::no};
    case Buttons::retryCancel:
      return {Answer::retry, Answer::cancel};
    case Buttons::ok:
      break;
  }
  return {Answer::ok};
}

std::string captionOf(Answer answer) {
  const auto* found = std::ranges::find(captions, answer, &std::pair<Answer, const char*>::first);
  return found == std::end(captions) ? std::string() : found->second;
}

std::optional<Answer> answerOf(const std::string& caption) {
  for (const auto& [answer, text] : captions) {
    if (base::equalsIgnoreCase(caption, text)) return answer;
  }
  return std::nullopt;
}

Answer closingAnswer(Buttons buttons) {
  const std::vector<Answer> answers = answersOf(buttons);
  return std::ranges::find(answers, Answer::cancel) != answers.end() ? Answer::cancel : answers.back();
}

}  // namespace vellumark::ui
