#pragma once
// Scripts that work a dialog: "FORM: control=value; control(2)=value; button".

#include <optional>
#include <string>
#include <vector>

#include "ui/screen.h"

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

/// A click into a picture, at a place in the pixels of its canvas.
struct PictureClick {
  int button;  ///< 1 left, 2 right, 4 middle
  double x, y;
};

/// What a step like "field!click=120,40", "field!rightclick=..." or "field!middleclick=..." means; nothing
/// for steps that are no clicks at a place. base::Error 5 for a place that is none.
std::optional<PictureClick> pictureClickOf(const DialogStep& step);

/// A click on the screen: on the pixel at a place, or on one of some colour.
struct ScreenClick {
  Point place;
  std::optional<Color> color;
};

/// What the steps "pixel=10,20" and "color=#1B6878" mean; nothing for others. base::Error 5 for values that
/// are neither.
std::optional<ScreenClick> screenClickOf(const DialogStep& step);

/// Reads a script. Steps are divided by ";", a value that holds ";" or blanks at its ends stands in single or
/// double quotes. base::Error 5 with one clear line where it is malformed.
DialogScript parseDialogScript(const std::string& text);

}  // namespace vellumark::ui
