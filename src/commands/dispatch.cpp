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

// Beside the commands count the gallery of one's own elements and those of the Slide Wizard, and whatever
// else stands among the tools.
const char* counterOf(std::int16_t number) {
  constexpr std::int16_t myElementsGallery = 1027, firstTool = 1031, lastTool = 2000;
  const Command* command = findCommand(number);
  if (command && command->counter) return command->counter;
  if (number == myElementsGallery) return counters::myElements;
  if (number > lastTool) return counters::slideWizard;
  return number >= firstTool ? counters::trimlineTools : nullptr;
}

const char* counterOf(std::string_view parameter) {
  if (parameter == "showAgendaWizard") return counters::agendaWizard;
  if (parameter.starts_with("insertCopyright")) return counters::slideWizard;
  return counters::trimlineTools;
}

// A store that takes nothing keeps nobody from working.
void count(const char* counter) {
  const std::int32_t value = base::toInt32(core::getRegistry(counter, "", "0"));
  core::tryRegistry(counter, std::to_string(base::add32(value, 1)), "");
}

}  // namespace vellumark::commands
