#pragma once

#include <cstdint>
#include <string>

#include "ui/form.h"

namespace vellumark::tools {

/// Asks for the margins of text frames in centimetres, for all sides at once or one by one. The spinners hold
/// minus the centimetres times 100.
class MarginInput : public ui::Form {
 public:
  MarginInput();

  bool cancelled() const { return cancelled_; }

  /// A margin in points as the boxes show it and as the spinners hold it (before the change of sign).
  static std::string getMarginText(float points);
  static std::int32_t getMarginValue(float points);

  ui::Label lExplanation{*this, "lExplanation",
                         "You can define the margins of the text frame either for all margins at once or "
                         "individually (in cm)"};
  ui::ControlArray<ui::OptionButton, 2> Opt{*this, "Opt"};  ///< all at once, individually
  ui::TextBox tbMargin{*this, "tbMargin"};
  ui::ScrollBar udMargin{*this, "udMargin", -32767, 0, 0};
  ui::ControlArray<ui::Label, 4> lM{*this, "lM"};
  ui::ControlArray<ui::TextBox, 4> tbM{*this, "tbM"};  ///< left, top, right, bottom
  ui::ControlArray<ui::ScrollBar, 4> udM{*this, "udM", -32767, 0, 0};
  ui::CommandButton btnOK{*this, "btnOK", "&OK"};
  ui::CommandButton btnCancel{*this, "btnCancel", "&Cancel"};

 private:
  void Form_Activate();
  void Opt_Click();
  void tbMargin_Validate(bool& cancel);
  void tbM_Validate(std::size_t index, bool& cancel);
  void udMargin_Change();
  void udM_Change(std::size_t index);
  void btnOK_Click();
  void btnCancel_Click();

  /// Shows the margins of the selected shapes.
  void load();
  void enableFields();

  bool cancelled_ = true;
};

}  // namespace vellumark::tools
