#include <utility>

#include "base/conversions.h"
#include "core/config.h"
#include "core/failure.h"
#include "core/helpers.h"
#include "core/http.h"
#include "core/message.h"
#include "core/registry.h"
#include "services/survey.h"
#include "services/survey_forms.h"
#include "services/survey_questions.h"

namespace vellumark::services {

using core::trap;
using survey::field;

Survey2::Survey2(std::string answers)
    : Form("Survey2", std::string(core::productTitle) + " - Survey (step 2 of 2)"),
      answers_(std::move(answers)) {
  unasked(true);
  intro.caption(survey::intro);
  intro.bold(true);
  for (std::size_t i = 0; i < feature.size(); ++i) {
    feature[i].caption(std::string(survey::features[i].name) + ":");
    description[i].caption(survey::features[i].description);
    description[i].wrapAt(46);
  }
  for (ui::Label* number : {&u1, &u2, &u3, &u4}) number->bold(true);
  q9.multiLine(true);
  q9.size(60, 4);
  btn2.isDefault(true);
  arrange();
  onLoad = [this] { Form_Load(); };
  onActivate = [this] { Form_Activate(); };
  btn1.onClick = [this] { btn1_Click(); };
  btn2.onClick = [this] { btn2_Click(); };
}

void Survey2::arrange() {
  using ui::Box;
  layout(ui::column({Box(intro), ui::row({Box(q7Label), Box(q7).stretch()}), Box(uLabel), Box(q8Label),
                     ui::grid(4, {Box(feature[0]), Box(description[0]), Box(u1), Box(q8_1).stretch(),
                                  Box(feature[1]), Box(description[1]), Box(u2), Box(q8_2).stretch(),
                                  Box(feature[2]), Box(description[2]), Box(u3), Box(q8_3).stretch(),
                                  Box(feature[3]), Box(description[3]), Box(u4), Box(q8_4).stretch()}),
                     Box(q9Label), Box(q9).stretch(), Box(thanks),
                     ui::row({Box(cbWhen), Box(btn1), ui::space(), Box(btn2)})})
             .gap(3));
}

void Survey2::Form_Load() {
  trap("Survey2, Form_Load", [&] {
    survey::fillQuestion(q7, {"Personal instruction/video conference",
                              "Instructional video (to be found in help menu)", "No training"});
    for (ui::ComboBox* question : {&q8_1, &q8_2, &q8_3, &q8_4}) {
      survey::fillQuestion(*question, {"0 - 15 minutes", "15 - 30 minutes", "30 - 60 minutes",
                                       "60 - 120 minutes", "> 120 minutes"});
    }
    survey::fillReminders(cbWhen);
    u1.caption(core::getRegistry("statsSlideWizard", "", "0"));
    u2.caption(core::getRegistry("statsMyElements", "", "0"));
    u3.caption(core::getRegistry("statsAgendaWizard", "", "0"));
    u4.caption(core::getRegistry("statsTrimlineTools", "", "0"));
  });
}

void Survey2::Form_Activate() {
  trap("Survey2, Form_Activate", [&] { core::topWindow(*this, true); });
}

void Survey2::btn1_Click() {
  trap("Survey2, btn1_Click", [&] {
    setReminder(cbWhen.listIndex());
    unload();
  });
}

void Survey2::btn2_Click() {
  trap("Survey2, btn2_Click", [&] {
    if (!survey::areAnswered({&q7, &q8_1, &q8_2, &q8_3, &q8_4})) {
      core::message("Please answer all questions before submitting the survey.", ui::Icon::information);
      return;
    }
    tellReply(postedToSurvey(allAnswers(), core::postLimit));
    unload();
  });
}

std::string Survey2::allAnswers() const {
  std::string all = answers_;
  for (const ui::ComboBox* question : {&q7, &q8_1, &q8_2, &q8_3, &q8_4}) all += field(*question);
  return all + field("q9", core::URLEncode(q9.text())) + field("statsSlideWizard", u1.caption()) +
         field("statsMyElements", u2.caption()) + field("statsAgendaWizard", u3.caption()) +
         field("statsTrimlineTools", u4.caption());
}

/// Only what arrived moves the next survey on.
void Survey2::tellReply(const std::string& reply) {
  const std::string again = "\r\nPlease try again next time and contact us at " +
                            std::string(core::supportEmail) + " if the problem persists.";
  if (reply == "success") {
    core::setRegistry("surveyDate", dayAhead(surveyInterval()), "");
    const std::int32_t count = base::toInt32(core::getRegistry("surveyCount", "", "0"));
    core::setRegistry("surveyCount", std::to_string(base::add32(count, 1)), "");
    core::message(
        "Your survey data has successfully been transmitted.\r\nAgain, thank you very much for your time.",
        ui::Icon::information);
  } else if (reply == "error_insert") {
    core::message("An error occured during transmission of your survey data." + again, ui::Icon::critical);
  } else {
    core::message(
        "An unexpected error has occured during transmission of your survey data (" + reply + ")." + again,
        ui::Icon::critical);
  }
}

}  // namespace vellumark::services
