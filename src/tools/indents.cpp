// Levels and indents of paragraphs.

#include "core/failure.h"
#include "core/globals.h"
#include "tools/host_age.h"
#include "tools/trimline_tools.h"

namespace vellumark::tools {
namespace {

using core::trap;

constexpr int oldLevels = 5;
constexpr int newLevels = 9;

host::Selection selection() { return core::globals().powerPointApp.ActiveWindow().Selection(); }

/// One level up (1) or down (-1) within the levels that there are. T has `IndentLevel`.
template <typename T>
void changeLevel(const T& format, int direction, int levels) {
  const int level = format.IndentLevel();
  if (direction == 1 && level < levels) format.IndentLevel(level + 1);
  if (direction == -1 && level > 1) format.IndentLevel(level - 1);
}

void changeOldLevels(const host::TextFrame& frame, int direction) {
  const host::Selection selected = selection();
  const host::TextRange range =
      selected.Type() == host::ppSelectionText ? selected.TextRange() : frame.TextRange();
  const int count = range.Paragraphs(-1, -1).Count();
  if (count == 0) changeLevel(range, direction, oldLevels);
  for (int i = 1; i <= count; ++i) changeLevel(range.Paragraphs(i, -1), direction, oldLevels);
}

void changeNewLevels(const host::TextFrame& frame, int direction) {
  host::TextRange2 range = host::Shape(frame.Parent()).TextFrame2().TextRange();
  const host::Selection selected = selection();
  if (selected.Type() == host::ppSelectionText) {
    const host::TextRange text = selected.TextRange();
    range = range.Characters(text.Start(), text.Length());
  }
  const int count = range.Paragraphs().Count();
  if (count == 0) changeLevel(range.ParagraphFormat(), direction, newLevels);
  for (int i = 1; i <= count; ++i) {
    changeLevel(range.Paragraphs(i).ParagraphFormat(), direction, newLevels);
  }
}

}  // namespace

void TrimlineTools::beautifyIndents() { iterateSelected("beautifyIndents"); }
void TrimlineTools::addIndent() { iterateSelected("addIndent"); }
void TrimlineTools::removeIndent() { iterateSelected("removeIndent"); }

void TrimlineTools::iterateSelected(const std::string& action) {
  trap("TrimlineTools, " + action, [&] { iterate(selection(), action); });
}

/// Each level stands one font size, that of the frame's first character, to the right of the level before.
void TrimlineTools::beautify(const host::TextFrame& frame) {
  trap("TrimlineTools, beautify", [&] {
    const HostAge age = hostAge();
    const int levels = age == HostAge::old ? oldLevels : age == HostAge::new_ ? newLevels : 0;
    const double size = frame.TextRange().Characters(1, 1).Font().Size();
    const host::RulerLevels ruler = frame.Ruler().Levels();
    ruler.Item(1).FirstMargin(0);
    ruler.Item(1).LeftMargin(0);
    for (int i = 2; i <= levels; ++i) {
      const host::RulerLevel level = ruler.Item(i);
      level.FirstMargin(static_cast<float>((i - 2) * size));
      level.LeftMargin(static_cast<float>((i - 1) * size));
    }
  });
}

/// Only the new hosts tidy the ruler after a change.
void TrimlineTools::indentLevel(const host::TextFrame& frame, int direction) {
  trap("TrimlineTools, indentLevel", [&] {
    switch (hostAge()) {
      case HostAge::old:
        changeOldLevels(frame, direction);
        break;
      case HostAge::new_:
        changeNewLevels(frame, direction);
        beautify(frame);
        break;
      case HostAge::other:
        break;
    }
  });
}

}  // namespace vellumark::tools
