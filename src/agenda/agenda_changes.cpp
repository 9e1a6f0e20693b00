// Work done by hand on agenda slides: it is noticed when the dialog opens, never carried back.

#include "agenda/agenda_ties.h"
#include "agenda/agenda_wizard.h"
#include "core/failure.h"
#include "core/message.h"

namespace vellumark::agenda {
namespace {

using core::trap;

enum : std::int16_t { contentChanged = 1, positionChanged = 2 };

std::int16_t changesOf(const host::Shape& shape) {
  const std::string content = shape.Tags().Item(tags::content);
  if (shape.Tags().Item(tags::kind).empty() || content.empty()) return 0;
  std::int16_t found = 0;
  if ("/" + shape.TextFrame().TextRange().Text() != content) found |= contentChanged;
  if (!checkShapeProperties(shape)) found |= positionChanged;
  return found;
}

/// The warning for what was found; nothing without changes.
const char* warning(std::int16_t changes) {
  switch (changes) {
    case contentChanged:
      return "The contents of some agenda slides were changed manually. Please be aware that manual changes "
             "will not be carried over to the Agenda Wizard but will be overwritten as soon as you click "
             "'OK' in the Agenda Wizard dialog.";
    case positionChanged:
      return "The item positions on some agenda slides were changed manually. Please be aware that manual "
             "changes will not be carried over to the Agenda Wizard but will be overwritten as soon as you "
             "click 'OK' in the Agenda Wizard dialog.";
    case contentChanged | positionChanged:
      return "Some agenda slides were changed manually, both in terms of content and item position. Please "
             "be aware that manual changes will not be carried over to the Agenda Wizard but will be "
             "overwritten as soon as you click 'OK' in the Agenda Wizard dialog.";
    default:
      return nullptr;
  }
}

}  // namespace

// Only shapes that are still there are looked at.
std::int16_t AgendaWizard::checkForManualChanges() {
  return trap("AgendaWizard, checkForManualChanges", [&] {
    std::int16_t found = 0;
    const host::Slides slides = agendaPresentation.Slides();
    const int count = slides.Count();
    for (int i = 1; i <= count; ++i) {
      const host::Slide slide = slides.Item(i);
      if (!isAgendaSlide(slide)) continue;
      const host::Shapes shapes = slide.Shapes();
      const int shapeCount = shapes.Count();
      for (int j = 1; j <= shapeCount; ++j) {
        found |= changesOf(shapes.Item(j));
        if (found == (contentChanged | positionChanged)) return found;
      }
    }
    return found;
  });
}

void AgendaWizard::warnOfManualChanges() {
  const char* text = warning(checkForManualChanges());
  if (text) core::message(std::string("Attention:\r\n\r\n") + text, ui::Icon::exclamation);
}

}  // namespace vellumark::agenda
