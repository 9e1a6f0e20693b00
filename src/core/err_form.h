#pragma once

#include <cstdint>
#include <string>

#include "ui/form.h"

namespace vellumark::core {

/// Shows a failure and lets the user send a report of it.
class ErrForm : public ui::Form {
 public:
  ErrForm();

  /// Fills in a failure: the text that is shown, the module and procedure that it names, and its number, 0
  /// for none.
  void show(const std::string& description, std::int32_t number);
  /// The module and procedure that the failure came from.
  void origin(const std::string& moduleName, const std::string& procedure);

  ui::Label heading{*this, "heading", "An unexpected error has occured."};
  ui::Label Label2{*this, "Label2", "You can help us resolve the problem by submitting an error report."};
  ui::PictureBox Picture1{*this, "Picture1", 32, 32};
  ui::Label errDescription{*this, "errDescription", "Error description"};
  ui::TextBox errReport{
      *this, "errReport",
      "Please describe the situation in which the error occured as detailed as \r\npossible.\r\n"};
  ui::Label contactHeading{*this, "contactHeading", "Please let us know how we can contact you if necessary"};
  ui::Label nameLabel{*this, "nameLabel", "Name"};
  ui::TextBox tbName{*this, "tbName"};
  ui::Label contactLabel{*this, "contactLabel", "Phone / email"};
  ui::TextBox tbContact{*this, "tbContact"};
  ui::Label lPrivacyInfo{*this, "lPrivacyInfo", "Privacy Policy"};
  ui::CommandButton btnSendReport{*this, "btnSendReport", "&Send report"};
  ui::CommandButton btnCancel{*this, "btnCancel", "&Close"};

 private:
  void Form_Load();
  void Form_Activate();
  void Form_Click();
  void errReport_Click();
  void lPrivacyInfo_Click();
  void lPrivacyInfo_MouseMove();
  void btnSendReport_Click();
  void btnCancel_Click();

  std::string class_;
  std::string function_;
  std::int32_t number_ = 0;
  std::string reportPlaceholder_;
  bool placeholderShown_ = false;
};

}  // namespace vellumark::core
