#include "core/failure.h"
#include "core/globals.h"
#include "tools/slide_extract.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {

void TrimlineTools::pasteOnSelectedSlides() {
  core::trap("TrimlineTools, pasteOnSelectedSlides", [&] {
    const host::DocumentWindow window = core::globals().powerPointApp.ActiveWindow();
    const std::vector<host::Slide> slides = slidesOf(window.Selection().SlideRange());
    const int view = window.ViewType();
    window.ViewType(host::ppViewNormal);
    window.Panes().Item(2).Activate();
    for (const host::Slide& slide : slides) {
      window.View().GotoSlide(slide.SlideIndex());
      window.View().Paste();
    }
    window.ViewType(static_cast<host::PpViewType>(view));
  });
}

}  // namespace vellumark::tools
