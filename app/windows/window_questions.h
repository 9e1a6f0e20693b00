#pragma once
// Answers message boxes and dialogs that the add-in shows in windows of its own, by working those windows.

#include "questions.h"

namespace vellumark::app {

/// While it lives, each box and dialog of this thread that comes up is worked as a user does it: fields are
/// filled and buttons pressed by window messages. A dialog that nothing answers is closed, or, where the
/// environment variable VELLUMARK_SHOW is 1, left to whoever sits in front.
std::unique_ptr<Questions> windowQuestions(std::vector<std::string> dialogs,
                                           std::vector<std::string> answers);

}  // namespace vellumark::app
