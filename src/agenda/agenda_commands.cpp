#include "agenda/agenda_commands.h"

#include "agenda/agenda_ties.h"
#include "agenda/agenda_wizard.h"
#include "core/message.h"

namespace vellumark::agenda {
namespace {

/// The item in the agenda isn't touched: it finds no slide the next time, and gets a new one.
void disconnect(const host::Slide& slide) {
  slide.Tags().Delete(tags::kind);
  slide.Tags().Delete(tags::slideID);
  const host::Shapes shapes = slide.Shapes();
  const int count = shapes.Count();
  for (int i = 1; i <= count; ++i) {
    const host::Tags tagsOfShape = shapes.Item(i).Tags();
    for (const char* tag : {tags::kind, tags::content, tags::properties}) tagsOfShape.Delete(tag);
  }
}

}  // namespace

void updateAgendaSlides() {
  AgendaWizard wizard;
  wizard.load();
  wizard.OK();
  wizard.unload();
}

void AgendaCommands::showAgendaWizard() { AgendaWizard().showModal(); }

void AgendaCommands::agendaUpdatePagenumbers() { updateAgendaSlides(); }

void AgendaCommands::disconnectAgendaSlides() {
  constexpr int noButton = 2;
  const ui::Answer answer = core::message(
      "If you disconnect agenda slides from the Agenda Wizard, the Agenda Wizard will not update or remove "
      "these slides in the future.\r\n\r\nAre you sure you want to disconnect the selected agenda slides "
      "from the Agenda Wizard?",
      ui::Icon::question, ui::Buttons::yesNo, noButton);
  if (answer != ui::Answer::yes) return;
  const host::SlideRange slides = core::globals().powerPointApp.ActiveWindow().Selection().SlideRange();
  const int count = slides.Count();
  for (int i = 1; i <= count; ++i) {
    if (const host::Slide slide = slides.Item(i); isAgendaSlide(slide)) disconnect(slide);
  }
}

}  // namespace vellumark::agenda
