#pragma once
// The callbacks that the ribbon's definition names. None of them has a trap: a failure goes to the host.

#include <cstdint>
#include <string>

#include "host/ribbon.h"
#include "library/thumbnails.h"

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

/// The picture of a control: that of the language for the language buttons, for all others the file with the
/// control's id in the folder of the user interface; nothing where that is missing.
host::ObjectRef getImage(const host::IRibbonControl& control);

// The chooser of styles: an entry for no style, then one for each style of the configuration.
inline constexpr std::int16_t styleChooser = 1025;  ///< the number of its control

std::int16_t style_getItemCount(const host::IRibbonControl& control);
std::string style_getItemLabel(const host::IRibbonControl& control, std::int32_t index);
void style_onAction(const host::IRibbonControl& control, const std::string& selectedId, std::int32_t index);
/// Chooses the first style where the current one is unknown.
std::int16_t style_getSelectedItemIndex(const host::IRibbonControl& control);

// The galleries of elements. The tag of a control of the Slide Wizard is a menu and a submenu with a
// backslash between them (5 without one), that of My Elements is a group; places count from 0.

/// The Slide Wizard's menus as XML, a gallery for each submenu. Pictures are looked after first, once in a
/// connection.
std::string slideWizard_getContent(const host::IRibbonControl& control, library::Thumbnails& thumbnails);
std::int16_t slideWizard_getItemCount(const host::IRibbonControl& control);
std::string slideWizard_getItemLabel(const host::IRibbonControl& control, std::int32_t index);
host::ObjectRef slideWizard_getItemImage(const host::IRibbonControl& control, std::int32_t index);
/// Inserts an element in the current style into the slide in view.
void slideWizard_onAction(const host::IRibbonControl& control, const std::string& selectedId,
                          std::int32_t index);

/// The galleries of the user's own elements as XML, one for each group. Pictures are looked after first; 91
/// while there is no store.
std::string myElements_getContent(const host::IRibbonControl& control, const library::Thumbnails& thumbnails);
std::int16_t myElements_getItemCount(const host::IRibbonControl& control);
std::string myElements_getItemLabel(const host::IRibbonControl& control, std::int32_t index);
host::ObjectRef myElements_getItemImage(const host::IRibbonControl& control, std::int32_t index);
/// Inserts one of the user's elements into the slide in view.
void myElements_onAction(const host::IRibbonControl& control, const std::string& selectedId,
                         std::int32_t index);

/// The menu of copyright notices as XML, one button for each.
std::string copyright_getContent(const host::IRibbonControl& control);

}  // namespace vellumark::commands
