#pragma once

#include <string>

#include "ui/form.h"

namespace vellumark::tools {

/// Asks for the name of an attachment. A name without the extension gets it.
class emailSelectedSlidesInput : public ui::Form {
 public:
  emailSelectedSlidesInput();

  bool cancelled() const { return cancelled_; }

  ui::Label lFileName{*this, "lFileName", "&File name of the attachment:"};
  ui::TextBox tbFileName{*this, "tbFileName"};
  ui::CommandButton btnOK{*this, "btnOK", "&OK"};
  ui::CommandButton btnCancel{*this, "btnCancel", "&Cancel"};

  std::string extension;  ///< of presentations on this host, with its dot

 private:
  void btnOK_Click();
  void btnCancel_Click();

  bool cancelled_ = false;
};

}  // namespace vellumark::tools
