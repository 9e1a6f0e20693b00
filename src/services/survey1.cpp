#include "core/config.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/http.h"
#include "core/message.h"
#include "services/survey.h"
#include "services/survey_forms.h"
#include "services/survey_questions.h"

namespace vellumark::services {

using core::trap;
using survey::field;

Survey1::Survey1() : Form("Survey1", std::string(core::productTitle) + " - Survey (step 1 of 2)") {
  unasked(true);
  intro.caption(survey::intro);
  intro.bold(true);
  for (std::size_t i = 0; i < feature.size(); ++i) {
    feature[i].caption(std::string(survey::features[i].name) + " - " + survey::features[i].description);
    feature[i].wrapAt(64);
  }
  btn2.isDefault(true);
  arrange();
  onLoad = [this] { Form_Load(); };
  onActivate = [this] { Form_Activate(); };
  btn1.onClick = [this] { btn1_Click(); };
  btn2.onClick = [this] { btn2_Click(); };
}

void Survey1::arrange() {
  using ui::Box;
  layout(
      ui::column({Box(intro),
                  ui::grid(2, {Box(q1Label), Box(q1).stretch(), Box(q2Label), Box(q2).stretch(), Box(q3Label),
                               Box(q3).stretch()}),
                  ui::row({Box(q4Label), Box(q4Hint)}),
                  ui::grid(2, {Box(q4_1), Box(q4_2), Box(q4_3), Box(q4_4)}).gap(1),
                  ui::row({Box(q5Label), Box(q5).stretch()}), Box(q6Label),
                  ui::grid(2, {Box(feature[0]), Box(q6_1).stretch(), Box(feature[1]), Box(q6_2).stretch(),
                               Box(feature[2]), Box(q6_3).stretch(), Box(feature[3]), Box(q6_4).stretch()}),
                  ui::row({Box(cbWhen), Box(btn1), ui::space(), Box(btn2)})})
          .gap(3));
}

void Survey1::Form_Load() {
  trap("Survey1, Form_Load", [&] {
    survey::fillQuestion(q1, {"Assistant", "Business Administration", "Business Development", "Communication",
                              "Consulting", "General Management", "Marketing", "Sales", "Strategy", "Other"});
    survey::fillQuestion(q2, {"Daily", "A few times per week", "Rarely"});
    survey::fillQuestion(q3, {"Beginner", "Intermediate", "Professional"});
    survey::fillQuestion(q5, {"Daily", "A few times per week", "Rarely"});
    for (ui::ComboBox* question : {&q6_1, &q6_2, &q6_3, &q6_4}) {
      survey::fillQuestion(*question,
                           {"Very useful, I don't want to miss it", "Good to have", "Not interesting for me",
                            "I can't say, I didn't have a chance to use it"});
    }
    survey::fillReminders(cbWhen);
  });
}

void Survey1::Form_Activate() {
  trap("Survey1, Form_Activate", [&] { core::topWindow(*this, true); });
}

void Survey1::btn1_Click() {
  trap("Survey1, btn1_Click", [&] {
    setReminder(cbWhen.listIndex());
    hide();
  });
}

void Survey1::btn2_Click() {
  trap("Survey1, btn2_Click", [&] {
    if (!survey::areAnswered({&q1, &q2, &q3, &q5, &q6_1, &q6_2, &q6_3, &q6_4})) {
      core::message("Please answer all questions before continuing.", ui::Icon::information);
      return;
    }
    answers_ = field("PPT", core::URLEncode(core::globals().powerPointApp.Version())) +
               field("version", core::URLEncode(std::string(core::addInVersion))) + field(q1) + field(q2) +
               field(q3);
    for (const ui::CheckBox* box : {&q4_1, &q4_2, &q4_3, &q4_4}) {
      answers_ += field(box->name(), box->value() ? "1" : "0");
    }
    for (const ui::ComboBox* question : {&q5, &q6_1, &q6_2, &q6_3, &q6_4}) answers_ += field(*question);
    hide();
  });
}

}  // namespace vellumark::services
