#pragma once
// The callbacks that the ribbon's definition names, but for those of its galleries. None of them has a trap:
// a failure goes to the host.

#include <string>

#include "host/ribbon.h"

namespace vellumark::commands {

/// A plain button was pressed.
void onAction(const host::IRibbonControl& control);
/// A toggle button was pressed.
void onActionTB(const host::IRibbonControl& control, bool pressed);
/// An entry of the copyright menu was chosen; its tag is the notice's number.
void copyright_onAction(const host::IRibbonControl& control);
/// What the last look at the selection found for the control; only whether a window is open is asked anew.
bool getEnabled(const host::IRibbonControl& control);
bool getVisible(const host::IRibbonControl& control);
/// The name of a language button's language; empty for all other controls.
std::string getLabel(const host::IRibbonControl& control);
/// The state of a toggle button; every failure is passed over and leaves it unpressed.
bool getPressed(const host::IRibbonControl& control);

}  // namespace vellumark::commands
