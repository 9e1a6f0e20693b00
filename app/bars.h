#pragma once
// The command bars of a host before the ribbon, as their user works them.

#include <functional>
#include <string>
#include <vector>

#include "host/command_bars.h"

namespace vellumark::app {

/// What stands on a bar or in a popup, in order.
std::vector<host::CommandBarControl> controlsOf(const host::CommandBarControls& controls);
/// All bars in order.
std::vector<host::CommandBar> barsOf(const host::CommandBars& bars);

/// The first control on any bar, popups entered, for which `wanted` holds; nothing where there is none.
host::CommandBarControl findControl(const host::CommandBars& bars,
                                    const std::function<bool(const host::CommandBarControl&)>& wanted);
/// The button whose parameter is one of these, in any case.
host::CommandBarControl findButton(const host::CommandBars& bars, const std::vector<std::string>& parameters);
/// The box of styles.
host::CommandBarControl findStyleBox(const host::CommandBars& bars);

}  // namespace vellumark::app
