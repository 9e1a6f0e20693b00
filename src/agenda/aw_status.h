#pragma once

#include <string>

#include "ui/form.h"

namespace vellumark::agenda {

/// Tells how far the making of agenda slides has come.
class awStatus : public ui::Form {
 public:
  awStatus();

  /// Says what is being done, and shows it at once.
  void say(const std::string& text);
  /// One step further, shown at once.
  void advance();

  ui::Label lWait{*this, "lWait",
                  "Please wait a few moments, your agenda slides are being generated / updated..."};
  ui::Label lStatus{*this, "lStatus"};
  ui::ProgressBar progress{*this, "progress"};
};

}  // namespace vellumark::agenda
