#include "services/survey_questions.h"

#include <algorithm>

#include "services/survey.h"

namespace vellumark::services::survey {
namespace {

void fill(ui::ComboBox& box, std::initializer_list<const char*> items) {
  for (const char* item : items) box.addItem(item);
  box.listIndex(0);
  AutoSizeComboBox(box);
}

}  // namespace

void fillQuestion(ui::ComboBox& question, std::initializer_list<const char*> answers) {
  question.addItem("Please choose...");
  fill(question, answers);
}

void fillReminders(ui::ComboBox& box) { fill(box, {"tomorrow", "in 2 weeks", "in 6 months", "never again"}); }

std::string field(const std::string& name, const std::string& value) { return "&" + name + "=" + value; }

std::string field(const ui::ComboBox& question) {
  return field(question.name(), std::to_string(question.listIndex()));
}

bool areAnswered(std::initializer_list<const ui::ComboBox*> questions) {
  return std::ranges::none_of(questions, [](const ui::ComboBox* one) { return one->listIndex() == 0; });
}

}  // namespace vellumark::services::survey
