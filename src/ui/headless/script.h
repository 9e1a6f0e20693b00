#pragma once
// Scripts that work a dialog: "FORM: control=value; control(2)=value; button".

#include <string>
#include <vector>

namespace vellumark::ui {

/// One step: a value for a control, a click on it, or another act ("control!label=text", "control!step=-1").
struct DialogStep {
  enum class Kind { set, click, act };
  Kind kind = Kind::click;
  std::string control;
  std::string act;    ///< of Kind::act: what stands behind the "!"
  std::string value;  ///< of Kind::set, and of acts that take one
  std::string text;   ///< as it was written, for messages
};

struct DialogScript {
  std::string form;
  std::vector<DialogStep> steps;
  std::string text;  ///< as it was written
};

/// Reads a script. Steps are divided by ";", a value that holds ";" or blanks at its ends stands in single or
/// double quotes. base::Error 5 with one clear line where it is malformed.
DialogScript parseDialogScript(const std::string& text);

}  // namespace vellumark::ui
