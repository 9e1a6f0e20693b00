// Hiding shapes, and showing all of a slide again. A slide with hidden shapes carries a tag, by which others
// warn of them.

#include "core/failure.h"
#include "core/message.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;

constexpr const char* hiddenShapesTag = "zorp_hiddenShapes";

void unhideAll(const host::Slide& slide) {
  slide.Tags().Delete(hiddenShapesTag);
  const host::Shapes shapes = slide.Shapes();
  const int count = shapes.Count();
  for (int i = 1; i <= count; ++i) shapes.Item(i).Visible(true);
}

}  // namespace

void TrimlineTools::hideShapes() {
  trap("TrimlineTools, hideShapes", [&] {
    const host::Selection selection = core::globals().powerPointApp.ActiveWindow().Selection();
    selection.SlideRange().Item(1).Tags().Add(hiddenShapesTag, "1");
    SelectedShapes().each([](const host::Shape& s) { s.Visible(false); });
  });
}

void TrimlineTools::unhideShapes() {
  trap("TrimlineTools, unhideShapes", [&] {
    const host::Selection selection = core::globals().powerPointApp.ActiveWindow().Selection();
    switch (selection.Type()) {
      case host::ppSelectionNone: {
        host::Slide slide;
        base::resumeNext([&] { slide = selection.SlideRange().Item(1); });
        if (!slide) {
          core::message(
              "Nothing appropriate is currently selected. Please select the slides you would like to unhide "
              "shapes on.",
              ui::Icon::information);
          return;
        }
        unhideAll(slide);
        break;
      }
      case host::ppSelectionSlides: {
        const host::SlideRange slides = selection.SlideRange();
        const int count = slides.Count();
        for (int i = 1; i <= count; ++i) unhideAll(slides.Item(i));
        break;
      }
      default:
        unhideAll(selection.SlideRange().Item(1));
    }
  });
}

}  // namespace vellumark::tools
