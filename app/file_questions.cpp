#include "file_questions.h"

#include "base/text.h"
#include "host/constants.h"
#include "platform/paths.h"
#include "ui/message_box.h"

namespace vellumark::app {
namespace {

ui::FileDialog::Kind kindOf(std::int32_t type) {
  constexpr std::int32_t folderPicker = 4;
  if (type == host::msoFileDialogSaveAs) return ui::FileDialog::Kind::save;
  return type == folderPicker ? ui::FileDialog::Kind::folder : ui::FileDialog::Kind::open;
}

}  // namespace

std::optional<std::string> askForFile(const deck::FileQuestion& question) {
  ui::FileDialog dialog;
  dialog.kind = kindOf(question.type);
  dialog.title = question.title;
  dialog.initialPath = platform::toSystem(question.initialFileName);
  for (const auto& [description, patterns] : question.filters) {
    dialog.filters.push_back({description, base::replaceAll(patterns, " ", "")});
  }
  return ui::fileDialog(dialog);
}

}  // namespace vellumark::app
