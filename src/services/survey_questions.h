#pragma once
// What the two dialogs of the usage survey have in common.

#include <array>
#include <initializer_list>
#include <string>
#include <vector>

#include "ui/lists.h"

namespace vellumark::services::survey {

inline constexpr const char* intro =
    "Please take a few moments to tell us about your experience with Vellumark for presentations.";

struct Feature {
  const char* name;
  const char* description;
};
inline constexpr std::array<Feature, 4> features = {{
    {"a) Slide Wizard", "Inserting standard elements from the menu"},
    {"b) My Elements", "Managing your own elements just like favorites in Internet Explorer"},
    {"c) Agenda Wizard", "Creating and updating agenda slides"},
    {"d) Trimline Tools", "Aligning positions, sizes, angles, beautify indents, hide/unhide shapes, ..."},
}};

/// Fills a list of answers, of which the first is none yet.
void fillQuestion(ui::ComboBox& question, std::initializer_list<const char*> answers);
/// Fills the list of times to be reminded at.
void fillReminders(ui::ComboBox& box);

/// "&name=" and the value.
std::string field(const std::string& name, const std::string& value);
/// "&name=" and the index of the answer, the name being the list's own.
std::string field(const ui::ComboBox& question);

/// Whether all of the questions have an answer.
bool areAnswered(std::initializer_list<const ui::ComboBox*> questions);

}  // namespace vellumark::services::survey
