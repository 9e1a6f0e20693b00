#pragma once
// What a run of the program stands in: how it reaches the add-in, and who answers the add-in's questions.

#include "add_in.h"
#include "failure.h"
#include "questions.h"

namespace vellumark::app {

struct Surroundings {
  AddInMaker addIn;
  QuestionsMaker questions;
};

/// The add-in in this very program, answered from scripts.
inline Surroundings builtIn() { return {builtInAddIn, scriptedQuestions}; }

}  // namespace vellumark::app
