#pragma once
// The usage survey: when it is due, it asks the user in two dialogs and posts the answers.

#include <chrono>
#include <string>

#include "ui/lists.h"

namespace vellumark::services {

/// Runs the survey where it is due and the vendor's server answers; at most once a connection. Without a
/// limit set it never is, and then nothing is sent.
void checkForSurvey();

/// Whether the vendor's server answers a short request.
bool connectionOK();

/// Shows the two dialogs.
void runSurvey();

/// Writes the date of the next survey, by the index of a choice in a list of reminders; any other index
/// writes nothing.
void setReminder(int choice);

/// Widens the open list of a box to its widest item.
void AutoSizeComboBox(ui::ComboBox& combo);

/// Posts a form to the server of the survey and returns its reply as text; empty where there is none.
std::string postedToSurvey(const std::string& body, std::chrono::milliseconds limit);

/// The day in so many days as "yyyy-mm-dd".
std::string dayAhead(int days);

/// How many days there are between two surveys.
int surveyInterval();

}  // namespace vellumark::services
