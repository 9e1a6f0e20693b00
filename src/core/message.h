#pragma once
// The add-in's own message boxes.

#include <string>

#include "core/config.h"
#include "ui/message_box.h"

namespace vellumark::core {

/// Shows a message box with the product's title.
inline ui::Answer message(const std::string& text, ui::Icon icon, ui::Buttons buttons = ui::Buttons::ok) {
  return ui::messageBox(text, icon, buttons, std::string(productTitle));
}

}  // namespace vellumark::core
