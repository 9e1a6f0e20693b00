#pragma once

#include "ui/form.h"

namespace vellumark::tools {

/// Asks for a radius in millimetres, beginning with that of the first selected shape. The spinner holds minus
/// the radius in tenths of a millimetre.
class roundedRectanglesInput : public ui::Form {
 public:
  roundedRectanglesInput();

  bool cancelled() const { return cancelled_; }

  ui::Label lRadius{*this, "lRadius", "&Radius (mm):"};
  ui::TextBox tbRadius{*this, "tbRadius", "0.0"};
  ui::ScrollBar udRadius{*this, "udRadius", -32767, 0, 0};
  ui::CommandButton btnOK{*this, "btnOK", "&OK"};
  ui::CommandButton btnCancel{*this, "btnCancel", "&Cancel"};

 private:
  void Form_Activate();
  void udRadius_Change();
  void tbRadius_Validate(bool& cancel);
  void btnOK_Click();
  void btnCancel_Click();

  bool cancelled_ = true;
};

}  // namespace vellumark::tools
