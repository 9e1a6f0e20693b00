#include "services/survey.h"

#include <algorithm>

#include "base/conversions.h"
#include "base/text.h"
#include "core/config.h"
#include "core/failure.h"
#include "core/helpers.h"
#include "core/http.h"
#include "core/registry.h"
#include "platform/clock.h"
#include "services/survey_forms.h"
#include "ui/toolkit.h"

namespace vellumark::services {

using core::trap;

void checkForSurvey() {
  trap("Survey, checkForSurvey", [] {
    const int count = base::toInt32(core::getRegistry("surveyCount", "", "0"));
    const int maxCount = base::toInt32(core::getRegistry("surveyMaxCount", "", "0"));
    const std::string date = core::getRegistry("surveyDate", "", dayAhead(surveyInterval()));
    const double due =
        base::toDate(base::mid16(date, 0, 4) + "-" + base::mid16(date, 5, 2) + "-" + base::mid16(date, 8, 2));
    if (count < maxCount && platform::now() > due && connectionOK()) runSurvey();
  });
}

bool connectionOK() {
  return trap("Survey, connectionOK", [] { return postedToSurvey("&ping=1", core::pingLimit) == "ping"; });
}

void runSurvey() {
  trap("Survey, runSurvey", [] {
    Survey1 first;
    first.showModal();
    const std::string answers = first.answers();
    first.unload();
    if (answers.empty()) return;
    Survey2 second(answers);
    second.showModal();
  });
}

void setReminder(int choice) {
  trap("Survey, setReminder", [&] {
    constexpr int days[] = {1, 14, 183};
    constexpr int never = 3;
    if (choice == never) {
      core::setRegistry("surveyDate", "2099-12-31", "");
    } else if (choice >= 0 && choice < never) {
      core::setRegistry("surveyDate", dayAhead(days[choice]), "");
    }
  });
}

void AutoSizeComboBox(ui::ComboBox& combo) {
  trap("Survey, AutoSizeComboBox", [&] {
    constexpr int room = 10;  // pixels
    int widest = 0;
    for (const ui::ListItem& item : combo.items()) {
      widest = std::max(widest, ui::toolkit().textWidth(item.text));
    }
    combo.droppedWidth(widest + room);
  });
}

std::string postedToSurvey(const std::string& body, std::chrono::milliseconds limit) {
  return core::ByteArrayToString(
      core::HttpPost(std::string(core::webBaseUrl) + "survey.php", body, 0, 80, "", "", limit));
}

std::string dayAhead(int days) { return base::isoDate(base::fix(platform::now()) + days); }

int surveyInterval() { return base::toInt32(core::getRegistry("surveyInterval", "", "183")); }

}  // namespace vellumark::services
