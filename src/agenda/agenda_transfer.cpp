// Agendas of other presentations, and the end of one's own.

#include "agenda/agenda_ties.h"
#include "agenda/agenda_wizard.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/message.h"
#include "core/xml.h"

namespace vellumark::agenda {
namespace {

using core::trap;

/// The path that the user picks; empty where he cancels.
std::string choosePresentation() {
  const host::FileDialog dialog = core::globals().powerPointApp.FileDialog(host::msoFileDialogOpen);
  dialog.AllowMultiSelect(false);
  const host::FileDialogFilters filters = dialog.Filters();
  while (filters.Count() > 0) filters.Delete(1);
  filters.Add("PowerPoint presentations", "*.ppt; *.pptx", 1);
  dialog.Title("Import agenda from another presentation...");
  return dialog.Show() == 0 ? std::string() : dialog.SelectedItems().Item(1);
}

std::string storedAgendaOf(const std::string& path) {
  const host::Presentation presentation =
      core::globals().powerPointApp.Presentations().Open(path, false, false, false);
  const std::string text = presentation.Tags().Item(tags::document);
  presentation.Close();
  return text;
}

}  // namespace

// The imported document replaces the dialog's as a whole. The tree was built when the items still had their
// old ids, so that it has to be built anew, by a click into it, before an item can be changed.
void AgendaWizard::btnImport_Click() {
  std::string path;
  trap(
      "AgendaWizard, btnImport_Click",
      [&] {
        path = choosePresentation();
        if (path.empty()) return;
        const std::string text = storedAgendaOf(path);
        if (text.empty()) {
          core::message("The specified PowerPoint presentation does not contain agenda information.",
                        ui::Icon::information);
          return;
        }
        if (!loadAgendaDocument(text, "")) {
          core::message(
              "The agenda information in the specified PowerPoint presentation does not seem to be valid.",
              ui::Icon::critical);
          return;
        }
        // No slide has such an id: the next generation makes a new one for every item that asks for one.
        for (const pugi::xml_node& item : agendaDoc.items()) set(item, "slideID", "s_" + core::getGUID());
      },
      [&](const base::Error& error) {
        if (error.number() != base::errors::unspecific) return false;
        core::message("Could not read file '" + path + "'.", ui::Icon::critical);
        return true;
      });
}

// Every answer to the question is a yes: only one that is no answer at all would keep the agenda.
void AgendaWizard::btnDeleteAgenda_Click() {
  trap("AgendaWizard, btnDeleteAgenda_Click", [&] {
    constexpr int cancelButton = 2;
    const ui::Answer answer = core::message(
        "Are you sure you want to delete the agenda and remove all agenda slides from the presentation?",
        ui::Icon::question, ui::Buttons::okCancel, cancelButton);
    if (static_cast<int>(answer) == 0) return;
    int deleted = 0;
    for (const pugi::xml_node& item : agendaDoc.items()) {
      const host::Slide slide = findSlide(agendaPresentation, core::attributeText(item, "slideID"));
      if (!slide) continue;
      slide.Delete();
      ++deleted;
    }
    for (const char* tag : {tags::document, tags::style, tags::slideOrder}) {
      agendaPresentation.Tags().Delete(tag);
    }
    core::message("The agenda has successfully been deleted and " + std::to_string(deleted) +
                      " agenda slides have been removed from the presentation.",
                  ui::Icon::information);
    core::resumeNext([&] { returnSlide.Select(); });
    unload();
  });
}

}  // namespace vellumark::agenda
