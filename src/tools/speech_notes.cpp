#include "core/config.h"
#include "core/failure.h"
#include "core/globals.h"
#include "tools/notes_page.h"
#include "tools/trimline_tools.h"
#include "ui/message_box.h"

namespace vellumark::tools {

void TrimlineTools::removeAllSpeechNotes() {
  core::trap("TrimlineTools, removeAllSpeechNotes", [&] {
    constexpr int no = 2;  // the default button
    const ui::Answer answer = ui::messageBox(
        "This will permanently remove all speech notes from the presentation.\r\n"
        "Please make sure you have a backup copy!\r\n"
        "Are you sure you want to proceed?",
        ui::Icon::exclamation, ui::Buttons::yesNo, std::string(core::productTitle), no);
    if (answer != ui::Answer::yes) return;
    const host::Slides slides = core::globals().powerPointApp.ActivePresentation().Slides();
    const int count = slides.Count();
    for (int i = 1; i <= count; ++i) {
      const host::Slide slide = slides.Item(i);
      if (!hasNotesPage(slide)) continue;
      const host::Placeholders placeholders = slide.NotesPage().Shapes().Placeholders();
      const int placeholderCount = placeholders.Count();
      for (int j = 1; j <= placeholderCount; ++j) {
        const host::Shape placeholder = placeholders.Item(j);
        if (placeholder.PlaceholderFormat().Type() != host::ppPlaceholderBody) continue;
        placeholder.TextFrame().TextRange().Text("");
      }
    }
  });
}

}  // namespace vellumark::tools
