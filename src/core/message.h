#pragma once
// The add-in's own message boxes.

#include <string>

#include "core/config.h"
#include "ui/message_box.h"

namespace vellumark::core {

/// Shows a message box with the product's title. `defaultButton` counts from 1.
inline ui::Answer message(const std::string& text, ui::Icon icon, ui::Buttons buttons = ui::Buttons::ok,
                          int defaultButton = 1) {
  return ui::messageBox(text, icon, buttons, std::string(productTitle), defaultButton);
}

}  // namespace vellumark::core
