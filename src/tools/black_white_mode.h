#pragma once

#include <string>

#include "ui/form.h"

namespace vellumark::tools {

/// Asks how backgrounds and shapes are drawn in black and white, and sets it for what is selected, or for the
/// whole presentation where neither slides nor shapes are.
class BlackWhiteMode : public ui::Form {
 public:
  BlackWhiteMode();

  ui::Label lBackground{*this, "lBackground", "&Background:"};
  ui::ComboBox cbBackground{*this, "cbBackground"};
  ui::Label lShapes{*this, "lShapes", "&Shapes:"};
  ui::ComboBox cbShapes{*this, "cbShapes"};
  ui::CommandButton btnOK{*this, "btnOK", "&OK"};
  ui::CommandButton btnCancel{*this, "btnCancel", "&Cancel"};

 private:
  void btnOK_Click();
  void btnCancel_Click();
  std::string apply() const;
};

}  // namespace vellumark::tools
