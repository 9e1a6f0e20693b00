#include "core/slide_in_view.h"

#include "core/globals.h"
#include "core/message.h"
#include "host/constants.h"

namespace vellumark::core {
namespace {

bool showsSlide(const host::DocumentWindow& window) {
  switch (window.ActivePane().ViewType()) {
    case host::ppViewSlide:
    case host::ppViewSlideMaster:
    case host::ppViewTitleMaster:
      return true;
    case host::ppViewOutline:
    case host::ppViewThumbnails:
    case host::ppViewMasterThumbnails:
      window.Panes().Item(2).Activate();
      return true;
    default:
      return false;
  }
}

}  // namespace

bool requireSlideInView(const std::string& purpose) {
  const host::Application& application = globals().powerPointApp;
  if (application.Windows().Count() == 0) {
    message(
        "There is no active presentation.\r\nPlease open a presentation or create a new presentation "
        "before " +
            purpose + ".",
        ui::Icon::critical);
    return false;
  }
  if (application.ActivePresentation().Slides().Count() == 0) {
    message(
        "The active presentation does not contain any slides.\r\nPlease add a slide before " + purpose + ".",
        ui::Icon::critical);
    return false;
  }
  if (showsSlide(application.ActiveWindow())) return true;
  message("Please go to normal view.", ui::Icon::information);
  return false;
}

}  // namespace vellumark::core
