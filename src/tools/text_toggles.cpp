// The two toggles on text: fitting the shape to it, and wrapping it.

#include "core/config.h"
#include "core/failure.h"
#include "core/globals.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;

host::CommandBarControl toggleButton(const std::string& caption) {
  return core::globals().powerPointApp.CommandBars().Item(core::toolsBarName).Controls().Item(caption);
}

/// A frame that holds no text takes on the property only once some was written.
void writeEmptyTexts(const SelectedShapes& shapes) {
  shapes.each([](const host::Shape& s) {
    if (s.TextFrame().HasText() == host::msoFalse) s.TextFrame().TextRange().Text("");
  });
}

}  // namespace

void TrimlineTools::adjustAutoShapeToText() {
  trap("TrimlineTools, adjustAutoShapeToText", [&] {
    const host::CommandBarControl button = toggleButton("Fit AutoShape to text");
    const SelectedShapes shapes;
    writeEmptyTexts(shapes);
    const host::TextFrame frame = shapes.range().TextFrame();
    switch (frame.AutoSize()) {
      case host::ppAutoSizeNone:
      case host::ppAutoSizeMixed:
        frame.AutoSize(host::ppAutoSizeShapeToFitText);
        button.State(host::msoButtonDown);
        break;
      case host::ppAutoSizeShapeToFitText:
        frame.AutoSize(host::ppAutoSizeNone);
        button.State(host::msoButtonUp);
        break;
      default:
        break;
    }
  });
}

void TrimlineTools::wrapText() {
  trap("TrimlineTools, wrapText", [&] {
    const host::CommandBarControl button = toggleButton("Wrap text in AutoShape");
    const SelectedShapes shapes;
    writeEmptyTexts(shapes);
    const host::TextFrame frame = shapes.range().TextFrame();
    switch (frame.WordWrap()) {
      case host::msoFalse:
      case host::msoTriStateMixed:
        frame.WordWrap(true);
        button.State(host::msoButtonDown);
        break;
      case host::msoTrue:
        frame.WordWrap(false);
        button.State(host::msoButtonUp);
        break;
      default:
        break;
    }
  });
}

}  // namespace vellumark::tools
