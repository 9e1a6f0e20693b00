#include "file_questions.h"

#include "base/text.h"
#include "host/constants.h"
#include "platform/paths.h"

namespace vellumark::app {
namespace {

ui::FileDialog::Kind kindOf(std::int32_t type) {
  constexpr std::int32_t folderPicker = 4;
  if (type == host::msoFileDialogSaveAs) return ui::FileDialog::Kind::save;
  return type == folderPicker ? ui::FileDialog::Kind::folder : ui::FileDialog::Kind::open;
}

}  // namespace

ui::FileDialog fileDialogFor(const deck::FileQuestion& question) {
  ui::FileDialog dialog;
  dialog.kind = kindOf(question.type);
  dialog.title = question.title;
  dialog.initialPath = platform::toSystem(question.initialFileName);
  for (const auto& [description, patterns] : question.filters) {
    dialog.filters.push_back({description, base::replaceAll(patterns, " ", "")});
  }
  return dialog;
}

}  // namespace vellumark::app
