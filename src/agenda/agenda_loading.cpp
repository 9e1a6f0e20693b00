// Where the dialog's document comes from: the presentation, or the template of a style.

#include <algorithm>

#include "agenda/agenda_ties.h"
#include "agenda/agenda_wizard.h"
#include "base/conversions.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/message.h"
#include "core/template_paths.h"
#include "core/xml.h"

namespace vellumark::agenda {
namespace {

using core::trap;

constexpr const char* noSubtitle = "<not supported by your corporate layout>";

constexpr const char* dataCorrupted = "The Agenda Wizard data seems to be corrupted. Please contact us at ";
constexpr const char* templateCorrupted =
    "The Agenda Wizard template seems to be corrupted. Please contact us at ";

void tellCorrupted(const char* what) {
  core::message(what + std::string(core::supportEmail) + ".", ui::Icon::critical);
}

}  // namespace

/// The style that the agenda was made with, else the current one. One that is not installed gives way to the
/// first.
void AgendaWizard::chooseStyle() {
  std::string wanted = agendaPresentation.Tags().Item(tags::style);
  if (wanted.empty()) wanted = core::globals().currentStyle;
  const auto& names = core::globals().styleNames;
  for (const std::string& name : names) cbStyle.addItem(name);
  const auto found = std::ranges::find(names, wanted);
  cbStyle.listIndex(found == names.end() ? 0 : static_cast<int>(found - names.begin()));
  agendaStyle = cbStyle.text();
}

/// A new agenda's template is found by the style's name, which serves as the name of its folder.
void AgendaWizard::loadStoredOrTemplate() {
  const std::string stored = agendaPresentation.Tags().Item(tags::document);
  const bool isNew = stored.empty();
  const std::string file =
      isNew ? core::toolbarTemplatePath(agendaStyle, core::agendaTemplateName) : std::string();
  if (loadAgendaDocument(stored, file)) return;
  tellCorrupted(isNew ? templateCorrupted : dataCorrupted);
  abortDialog = true;
}

bool AgendaWizard::loadAgendaDocument(const std::string& xmlText, const std::string& fileName) {
  return trap(
      "AgendaWizard, loadAgendaDocument",
      [&] {
        if (!(fileName.empty() ? agendaDoc.parse(xmlText) : agendaDoc.load(fileName))) return false;
        fillingControls = true;
        fillOptions();
        fillingControls = false;
        xml2treeview(true, "");
        return true;
      },
      [&](const base::Error&) {
        fillingControls = false;
        return false;
      });
}

void AgendaWizard::fillOptions() {
  const pugi::xml_node agenda = agendaDoc.agenda();
  cbShowItemNumbers.value(flag(agenda, "showItemNumbers"));
  cbShowResponsible.value(flag(agenda, "showResponsible"));
  cbShowTimeSlots.value(flag(agenda, "showTimeSlots"));
  cbShowPageNumbers.value(flag(agenda, "showPageNumbers"));
  udStart.value(-integer(agenda, "startTime"));
  tbTitle.text(core::attributeText(agenda, "title"));
  if (agendaDoc.subtitle()) {
    tbSubtitle.text(core::attributeText(agenda, "subtitle"));
  } else {
    tbSubtitle.text(noSubtitle);
    tbSubtitle.enabled(false);
  }
}

/// Takes over the look of the chosen style, here found by the style's folder. What the agenda says stays.
void AgendaWizard::cbStyle_Validate(bool& cancel) {
  trap("AgendaWizard, cbStyle_Validate", [&] {
    AgendaDocument look;
    if (!look.load(core::agendaTemplatePath(cbStyle.listIndex() + 1))) {
      tellCorrupted(templateCorrupted);
      cancel = true;
      return;
    }
    agendaStyle = cbStyle.text();
    agendaDoc.applyStyle(look);
    xml2treeview(false, "");
  });
}

}  // namespace vellumark::agenda
