#include "core/template_paths.h"

#include <cstddef>

#include "base/error.h"
#include "core/globals.h"

namespace vellumark::core {

std::string ribbonTemplatePath(const std::string& style, const std::string& file) {
  return globals().stylesFolder + style + "\\" + file;
}

std::string toolbarTemplatePath(const std::string& styleFolder, const std::string& file) {
  return globals().stylesFolder + styleFolder + "\\" + file;
}

std::string agendaTemplatePath(std::int32_t stylePosition) {
  const auto& folders = globals().styleFolders;
  if (stylePosition < 1 || static_cast<std::size_t>(stylePosition) > folders.size()) {
    base::raise(base::errors::subscript);
  }
  return toolbarTemplatePath(folders[static_cast<std::size_t>(stylePosition) - 1], agendaTemplateName);
}

}  // namespace vellumark::core
