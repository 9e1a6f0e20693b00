#pragma once

#include "ui/form.h"

namespace vellumark::tools {

/// Gives the selected block arrows a head angle and a shaft width.
class BlockArrows : public ui::Form {
 public:
  BlockArrows();

  ui::Frame frAngle{*this, "frAngle", "Head angle"};
  ui::ControlArray<ui::OptionButton, 4> obAngle{*this, "obAngle", "", &frAngle};
  ui::TextBox tbAngle{*this, "tbAngle"};
  ui::Label lAngle{*this, "lAngle", "degrees"};
  ui::Label lRatio{*this, "lRatio", "&Shaft width / arrowhead width:"};
  ui::TextBox tbRatio{*this, "tbRatio"};
  ui::Label lPercent{*this, "lPercent", "%"};
  ui::CommandButton btnOK{*this, "btnOK", "&OK"};
  ui::CommandButton btnCancel{*this, "btnCancel", "&Cancel"};

 private:
  void obAngle_Click(std::size_t index);
  void tbAngle_Validate(bool& cancel);
  void tbRatio_Validate(bool& cancel);
  void btnOK_Click();
  void btnCancel_Click();
};

}  // namespace vellumark::tools
