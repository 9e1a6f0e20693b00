#pragma once

#include "ui/form.h"

namespace vellumark::tools {

/// Shows how many characters and words the selected shapes hold.
class wordCountDialog : public ui::Form {
 public:
  wordCountDialog();

  ui::Label lCharCount{*this, "lCharCount", "Characters (incl. blanks)"};
  ui::Label charCount{*this, "charCount"};
  ui::Label lCharCountNoBlanks{*this, "lCharCountNoBlanks", "Characters (no blanks)"};
  ui::Label charCountNoBlanks{*this, "charCountNoBlanks"};
  ui::Label lWordCount{*this, "lWordCount", "Words"};
  ui::Label wordCount{*this, "wordCount"};
  ui::CommandButton btnClose{*this, "btnClose", "&Close"};

 private:
  void btnClose_Click();
};

}  // namespace vellumark::tools
