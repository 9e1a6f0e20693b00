#pragma once
// The two dialogs of the usage survey. Index 0 of each list of answers counts as no answer.

#include <string>
#include <utility>

#include "ui/form.h"

namespace vellumark::services {

/// The first step: who the user is, and how the product is used.
class Survey1 : public ui::Form {
 public:
  Survey1();

  /// The answers as part of a form-encoded text; empty unless the user went on to the next step.
  const std::string& answers() const { return answers_; }

  ui::Label intro{*this, "intro"};
  ui::Label q1Label{*this, "q1Label", "1. How would you characterize your job position?"};
  ui::ComboBox q1{*this, "q1"};
  ui::Label q2Label{*this, "q2Label", "2. How often do you use PowerPoint?"};
  ui::ComboBox q2{*this, "q2"};
  ui::Label q3Label{*this, "q3Label", "3. How would you characterize your PowerPoint skills?"};
  ui::ComboBox q3{*this, "q3"};
  ui::Label q4Label{*this, "q4Label", "4. What do you use PowerPoint for?"};
  ui::Label q4Hint{*this, "q4Hint", "(More than one answer possible)"};
  ui::CheckBox q4_1{*this, "q4_1", "Create new presentations"};
  ui::CheckBox q4_2{*this, "q4_2", "Modify existing presentations"};
  ui::CheckBox q4_3{*this, "q4_3", "View presentations"};
  ui::CheckBox q4_4{*this, "q4_4", "Present"};
  ui::Label q5Label{*this, "q5Label", "5. How frequently do you use Vellumark for presentations?"};
  ui::ComboBox q5{*this, "q5"};
  ui::Label q6Label{*this, "q6Label", "6. How useful are the following features for you?"};
  ui::ControlArray<ui::Label, 4> feature{*this, "feature"};
  ui::ComboBox q6_1{*this, "q6_1"};
  ui::ComboBox q6_2{*this, "q6_2"};
  ui::ComboBox q6_3{*this, "q6_3"};
  ui::ComboBox q6_4{*this, "q6_4"};
  ui::ComboBox cbWhen{*this, "cbWhen"};
  ui::CommandButton btn1{*this, "btn1", "&Remind me"};
  ui::CommandButton btn2{*this, "btn2", "&Next"};

 private:
  void arrange();
  void Form_Load();
  void Form_Activate();
  void btn1_Click();
  void btn2_Click();

  std::string answers_;
};

/// The second step: what the user makes of it, after a look at the usage counters. Sends the answers of both.
class Survey2 : public ui::Form {
 public:
  /// `answers` are those of the first step.
  explicit Survey2(std::string answers);

  ui::Label intro{*this, "intro"};
  ui::Label q7Label{*this, "q7Label",
                    "7. In which form have you received training on Vellumark for presentations?"};
  ui::ComboBox q7{*this, "q7"};
  ui::Label uLabel{*this, "uLabel", "Here are your usage statistics:"};
  ui::Label u1{*this, "u1"};
  ui::Label u2{*this, "u2"};
  ui::Label u3{*this, "u3"};
  ui::Label u4{*this, "u4"};
  ui::Label q8Label{*this, "q8Label",
                    "8. Taking the statistics into account, how would you estimate the average time saving "
                    "per week?"};
  ui::ControlArray<ui::Label, 4> feature{*this, "feature"};
  ui::ControlArray<ui::Label, 4> description{*this, "description"};
  ui::ComboBox q8_1{*this, "q8_1"};
  ui::ComboBox q8_2{*this, "q8_2"};
  ui::ComboBox q8_3{*this, "q8_3"};
  ui::ComboBox q8_4{*this, "q8_4"};
  ui::Label q9Label{*this, "q9Label", "9. Additional comments"};
  ui::TextBox q9{*this, "q9"};
  ui::Label thanks{*this, "thanks", "Thank you very much for your time!"};
  ui::ComboBox cbWhen{*this, "cbWhen"};
  ui::CommandButton btn1{*this, "btn1", "&Remind me"};
  ui::CommandButton btn2{*this, "btn2", "&Send survey"};

 private:
  void arrange();
  std::string allAnswers() const;
  void tellReply(const std::string& reply);
  void Form_Load();
  void Form_Activate();
  void btn1_Click();
  void btn2_Click();

  std::string answers_;
};

}  // namespace vellumark::services
