#pragma once
// The controls of the "Trimline Tools" bar as the settings dialog lists them.

#include <string>
#include <vector>

#include "host/command_bars.h"

namespace vellumark::services {

/// The controls on the bar in their order, those of a popup behind it. None where the bar doesn't stand.
std::vector<host::CommandBarControl> toolControls();

/// "ID" and the control's help id. Controls without help share a key.
std::string toolKey(const host::CommandBarControl& control);

/// Takes the first control with that key out of the list; 5 where there is none.
host::CommandBarControl takeControl(std::vector<host::CommandBarControl>& controls, const std::string& key);

/// The file of the control's picture, where it has one of the add-in's own; empty elsewhere.
std::string toolPictureFile(const host::CommandBarControl& control);

}  // namespace vellumark::services
