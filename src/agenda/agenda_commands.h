#pragma once
// The Agenda Wizard as commands and events reach it.

#include "core/globals.h"

namespace vellumark::agenda {

/// Makes all agenda slides of the active presentation anew, without showing the dialog. Without a trap.
void updateAgendaSlides();

/// What the commands of the Trimline Tools that concern agendas do.
class AgendaCommands : public core::AgendaCommands {
 public:
  void showAgendaWizard() override;
  void agendaUpdatePagenumbers() override;
  void disconnectAgendaSlides() override;
};

}  // namespace vellumark::agenda
