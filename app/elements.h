#pragma once
// The elements in the ribbon's galleries or the toolbar's menus, as a user names them.

#include <string>

#include "session.h"

namespace vellumark::app {

/// What users call the galleries of their own elements.
inline constexpr const char* myElementsMenu = "My Elements";

/// Clicks an element in its gallery or menu: "Diagrams/Processes/Five steps" of the Slide Wizard, "My
/// Elements/Arrows/Wide arrow" of the user's own; in the place of an element's name may stand its number from
/// 1. A Failure of usage where there is none.
void insertElement(Session& session, const std::string& path);

}  // namespace vellumark::app
