#pragma once

#include "ui/form.h"

namespace vellumark::tools {

/// The raw values of the handles that all selected shapes have.
class AutoShapeAdjustments : public ui::Form {
 public:
  AutoShapeAdjustments();

  ui::ControlArray<ui::Label, 8> lAdj{*this, "lAdj"};
  ui::ControlArray<ui::TextBox, 8> tbAdj{*this, "tbAdj"};
  ui::CommandButton btnOK{*this, "btnOK", "&OK"};
  ui::CommandButton btnCancel{*this, "btnCancel", "&Cancel"};

 private:
  void Form_Activate();
  void btnOK_Click();
  void btnCancel_Click();
};

}  // namespace vellumark::tools
