#include "base/web_address.h"
#include "core/failure.h"
#include "core/globals.h"
#include "core/helpers.h"
#include "core/message.h"
#include "platform/shell.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {

void TrimlineTools::openContainingFolder() {
  core::trap("TrimlineTools, openContainingFolder", [&] {
    const host::Presentation presentation = core::globals().powerPointApp.ActivePresentation();
    const std::string folder = presentation.Path();
    if (folder.empty()) {
      core::message("The active presentation has not been saved yet.\r\nPlease save the presentation first.",
                    ui::Icon::critical);
      return;
    }
    // A folder in the cloud is a page of the web.
    if (base::isWebAddress(folder)) return core::openURL(folder);
    platform::showInFolder(presentation.FullName());
  });
}

}  // namespace vellumark::tools
