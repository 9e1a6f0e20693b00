#pragma once

#include "ui/form.h"

namespace vellumark::tools {

/// Asks which points of two shapes change places, and whether their places in the z-order do, too.
class SwitchObjectsInput : public ui::Form {
 public:
  SwitchObjectsInput();

  bool cancelled() const { return cancelled_; }
  /// The point of the box, row by row: 0 left top, 4 the centre, 8 right bottom.
  int anchor() const;
  bool zOrder() const { return cbZOrder.value(); }

  ui::Label lAnchor{*this, "lAnchor", "Point of both shapes that changes places:"};
  ui::ControlArray<ui::OptionButton, 9> obAnchor{*this, "obAnchor"};
  ui::CheckBox cbZOrder{*this, "cbZOrder", "Switch &z-order, too"};
  ui::CommandButton btnOK{*this, "btnOK", "&OK"};
  ui::CommandButton btnCancel{*this, "btnCancel", "&Cancel"};

 private:
  void btnOK_Click();
  void btnCancel_Click();

  bool cancelled_ = true;
};

}  // namespace vellumark::tools
