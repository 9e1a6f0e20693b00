// Commands on agendas, which the Agenda Wizard carries out.

#include "base/error.h"
#include "core/failure.h"
#include "core/globals.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

core::AgendaCommands& agenda() {
  if (!core::globals().agenda) base::raise(base::errors::objectNotSet);
  return *core::globals().agenda;
}

}  // namespace

void TrimlineTools::showAgendaWizard() {
  core::trap("TrimlineTools, showAgendaWizard", [] { agenda().showAgendaWizard(); });
}

void TrimlineTools::agendaUpdatePagenumbers() {
  core::trap("TrimlineTools, agendaUpdatePagenumbers", [] { agenda().agendaUpdatePagenumbers(); });
}

void TrimlineTools::disconnectAgendaSlides() {
  core::trap("TrimlineTools, disconnectAgendaSlides", [] { agenda().disconnectAgendaSlides(); });
}

}  // namespace vellumark::tools
