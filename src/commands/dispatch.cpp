#include "commands/dispatch.h"

#include <algorithm>

#include "base/conversions.h"
#include "commands/command_table.h"
#include "core/failure.h"
#include "core/registry.h"

namespace vellumark::commands {

std::int16_t controlNumber(const std::string& id) {
  return base::toInt16(std::string_view(id).substr(std::min(id.size(), std::size_t{3})));
}

void runUndoFix() {
  using core::resumeNext;
  const core::Globals& globals = core::globals();
  host::Presentation presentation;
  resumeNext([&] {
    presentation = globals.powerPointApp.Presentations().Open(globals.programFolder + "zorpUndoFix.ppt", true,
                                                              false, false);
  });
  resumeNext([&] { globals.powerPointApp.Run(presentation.Name() + "!zorp.zorpUndoFix"); });
  resumeNext([&] { presentation.Saved(true); });
  resumeNext([&] { presentation.Close(); });
}

const char* counterOf(std::int16_t number) {
  switch (number) {
    case 1018:
    case 1020:
    case 1021:
      return counters::agendaWizard;
    case 1027:
    case 1028:
    case 1029:
      return counters::myElements;
    default:
      if (number > 2000) return counters::slideWizard;
      return number >= 1031 ? counters::trimlineTools : nullptr;
  }
}

const char* counterOf(std::string_view parameter) {
  if (parameter == "showAgendaWizard") return counters::agendaWizard;
  if (parameter.starts_with("insertCopyright")) return counters::slideWizard;
  return counters::trimlineTools;
}

void count(const char* counter) {
  const std::int32_t value = base::toInt32(core::getRegistry(counter, "", "0"));
  core::setRegistry(counter, std::to_string(base::add32(value, 1)), "");
}

}  // namespace vellumark::commands
