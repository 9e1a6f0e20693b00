#pragma once
// Pressing the button of a command, on the ribbon or on a toolbar as the host has it.

#include <cstdint>
#include <string>

#include "commands/command_table.h"
#include "session.h"

namespace vellumark::app {

/// A command as a user named it.
struct CommandCall {
  const commands::Command* command;
  std::int16_t number;   ///< the ribbon button, 0 where the ribbon has none
  std::string argument;  ///< what stands behind the blank of a toolbar parameter
};

/// The command of that method name ("alignLefts", in any case), ribbon number ("1032", "zp_1032") or toolbar
/// parameter
/// ("setLanguage 1031", "!about"). A Failure of usage where there is none.
CommandCall findCommand(const std::string& name);

/// Presses the button of a command. A Failure where the host has no button
/// for it or the button is disabled, and where the command fails on the way. What it tells the user goes to
/// Questions.
void press(Session& session, const CommandCall& call);

}  // namespace vellumark::app
