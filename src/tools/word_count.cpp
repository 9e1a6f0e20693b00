#include "tools/word_count.h"

#include <algorithm>
#include <array>

#include "base/conversions.h"
#include "core/failure.h"
#include "tools/selected_shapes.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;

/// What counts as a blank. A paragraph's end is one however the host writes it.
constexpr std::array<std::string_view, 9> blanks = {
    " ", "\r", "\r\n", "\n", "\t", "\v", "\f", std::string_view("\0", 1), "\b"};
/// A word that is found in here is no word: a mark without a blank behind it.
constexpr std::string_view marks = ",.-_:;!§$%&/()=?\\}][{";

/// 16-bit counters, added over all shapes.
struct Counts {
  std::int16_t characters = 0;
  std::int16_t blanks = 0;
  std::int16_t words = 0;
};
void countOne(std::int16_t& counter) { counter = base::add16(counter, 1); }

void add(Counts& counts, const host::TextRange& text) {
  const int characters = text.Characters(-1, -1).Count();
  for (int i = 1; i <= characters; ++i) {
    const bool blank = std::ranges::find(blanks, text.Characters(i, -1).Text()) != blanks.end();
    countOne(blank ? counts.blanks : counts.characters);
  }
  const int words = text.Words(-1, -1).Count();
  for (int i = 1; i <= words; ++i) {
    if (marks.find(text.Words(i, -1).Text()) == std::string_view::npos) countOne(counts.words);
  }
}

}  // namespace

wordCountDialog::wordCountDialog() : Form("wordCount", "Text statistics") {
  btnClose.isDefault(true);
  btnClose.isCancel(true);  // the Escape key closes the dialog too
  layout(ui::column({ui::grid(2, {ui::Box(lCharCount), ui::Box(charCount), ui::Box(lCharCountNoBlanks),
                                  ui::Box(charCountNoBlanks), ui::Box(lWordCount), ui::Box(wordCount)}),
                     ui::row({ui::space(), ui::Box(btnClose)})})
             .gap(3));
  btnClose.onClick = [this] { btnClose_Click(); };
}

void wordCountDialog::btnClose_Click() {
  trap("wordCount, btnClose_Click", [&] { unload(); });
}

void TrimlineTools::countWords() {
  trap("TrimlineTools, countWords", [&] {
    Counts counts;
    SelectedShapes().each([&](const host::Shape& s) {
      if (s.HasTextFrame() != host::msoFalse) add(counts, s.TextFrame().TextRange());
    });
    auto dialog = std::make_unique<wordCountDialog>();
    dialog->charCount.caption(std::to_string(base::add16(counts.characters, counts.blanks)));
    dialog->charCountNoBlanks.caption(std::to_string(counts.characters));
    dialog->wordCount.caption(std::to_string(counts.words));
    if (wordCount_) wordCount_->unload();
    wordCount_ = std::move(dialog);
    wordCount_->showModeless();
  });
}

}  // namespace vellumark::tools
