// The controls of the item and of the whole agenda: what they check, and how they reach the document.

#include "agenda/agenda_wizard.h"
#include "base/conversions.h"
#include "core/failure.h"
#include "core/message.h"

namespace vellumark::agenda {
namespace {

using core::trap;

constexpr double minutesOfDay = 24 * 60;

void refuse(const char* why, bool& cancel) {
  core::message(why, ui::Icon::critical);
  cancel = true;
}

}  // namespace

void AgendaWizard::saveCurrentItem() {
  trap("AgendaWizard, saveCurrentItem", [&] {
    const pugi::xml_node item = selectedItem();
    set(item, "text", tbAgendaItem.text());
    set(item, "responsible", tbResponsible.text());
    set(item, "duration", -udDuration.value());
    set(item, "break", cbBreak.value());
    set(item, "generateAgendaSlide", cbGenerateAgendaSlide.value());
    set(item, "showAgendaItem", cbShowAgendaItem.value());
    xml2treeview(false, "");
  });
}

void AgendaWizard::saveAgendaOptions() {
  trap("AgendaWizard, saveAgendaOptions", [&] {
    const pugi::xml_node agenda = agendaDoc.agenda();
    set(agenda, "showItemNumbers", cbShowItemNumbers.value());
    set(agenda, "showResponsible", cbShowResponsible.value());
    set(agenda, "showTimeSlots", cbShowTimeSlots.value());
    set(agenda, "showPageNumbers", cbShowPageNumbers.value());
    set(agenda, "title", tbTitle.text());
    if (tbSubtitle.enabled()) set(agenda, "subtitle", tbSubtitle.text());
    set(agenda, "startTime", -udStart.value());
    xml2treeview(false, "");
  });
}

void AgendaWizard::itemChanged() {
  if (!fillingControls) saveCurrentItem();
}

void AgendaWizard::optionChanged() {
  if (!fillingControls) saveAgendaOptions();
}

/// A slide for an item that isn't shown can't be asked for.
void AgendaWizard::cbGenerateAgendaSlide_Click() {
  trap("AgendaWizard, cbGenerateAgendaSlide_Click", [&] {
    if (fillingControls) return;
    if (cbGenerateAgendaSlide.value()) cbShowAgendaItem.value(true);
    saveCurrentItem();
  });
}

void AgendaWizard::cbShowAgendaItem_Click() {
  trap("AgendaWizard, cbShowAgendaItem_Click", [&] {
    if (fillingControls) return;
    if (!cbShowAgendaItem.value()) cbGenerateAgendaSlide.value(false);
    saveCurrentItem();
  });
}

/// The columns of page numbers and of time slots exclude each other.
void AgendaWizard::cbShowPageNumbers_Click() {
  trap("AgendaWizard, cbShowPageNumbers_Click", [&] {
    if (fillingControls) return;
    if (cbShowPageNumbers.value() && cbShowTimeSlots.value()) cbShowTimeSlots.value(false);
    saveAgendaOptions();
  });
}

void AgendaWizard::cbShowTimeSlots_Click() {
  trap("AgendaWizard, cbShowTimeSlots_Click", [&] {
    if (fillingControls) return;
    if (cbShowTimeSlots.value() && cbShowPageNumbers.value()) cbShowPageNumbers.value(false);
    saveAgendaOptions();
  });
}

// A value that is refused keeps the focus; what the spinner holds is saved all the same.
void AgendaWizard::tbDuration_Validate(bool& cancel) {
  trap("AgendaWizard, tbDuration_Validate", [&] {
    if (!base::isTypedNumber(tbDuration.text())) {
      refuse("Please enter a numeric value.", cancel);
    } else if (const double minutes = base::toDouble(tbDuration.text());
               minutes < 0 || minutes > minutesOfDay) {
      refuse("Please enter a value between 0 and 1440 minutes.", cancel);
    } else {
      udDuration.value(-base::toInt16(minutes));
    }
    itemChanged();
  });
}

void AgendaWizard::tbStart_Validate(bool& cancel) {
  trap("AgendaWizard, tbStart_Validate", [&] {
    if (!base::isDate(tbStart.text())) {
      refuse("Please enter a valid time (hh:mm).", cancel);
    } else if (const double ofDay = base::toDate(tbStart.text()); ofDay < 0 || ofDay >= 1.0) {
      refuse("Please enter a valid time between 00:00 and 23:59.", cancel);
    } else {
      udStart.value(-base::toInt16(ofDay * minutesOfDay));
    }
    optionChanged();
  });
}

/// A spinner that the user works gives its field the focus. One that the program fills leaves it where it is:
/// the field that lost it again would be saved.
void AgendaWizard::takeFocus(ui::TextBox& field) {
  if (!fillingControls && field.enabled() && visible()) focus(field);
}

void AgendaWizard::udDuration_Change() {
  trap("AgendaWizard, udDuration_Change", [&] {
    takeFocus(tbDuration);
    tbDuration.text(std::to_string(-udDuration.value()));
    itemChanged();
  });
}

void AgendaWizard::udStart_Change() {
  trap("AgendaWizard, udStart_Change", [&] {
    takeFocus(tbStart);
    tbStart.text(timeText(base::toInt16(static_cast<double>(-udStart.value()))));
    if (!tvItems.root().children.empty()) xml2treeview(false, "");
    optionChanged();
  });
}

}  // namespace vellumark::agenda
