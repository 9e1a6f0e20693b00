#include "core/failure.h"
#include "core/globals.h"
#include "core/message.h"
#include "platform/shell.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {

void TrimlineTools::openContainingFolder() {
  core::trap("TrimlineTools, openContainingFolder", [&] {
    const host::Presentation presentation = core::globals().powerPointApp.ActivePresentation();
    if (presentation.Path().empty()) {
      core::message("The active presentation has not been saved yet.\r\nPlease save the presentation first.",
                    ui::Icon::critical);
      return;
    }
    platform::showInFolder(presentation.FullName());
  });
}

}  // namespace vellumark::tools
