#include "deck/model/file_kinds.h"

#include <algorithm>

#include "base/text.h"

namespace vellumark::deck {
namespace {

struct FileKind {
  std::string_view extension, contentType;
};
constexpr FileKind kinds[] = {
    {".pptx", "application/vnd.openxmlformats-officedocument.presentationml.presentation.main+xml"},
    {".ppsx", "application/vnd.openxmlformats-officedocument.presentationml.slideshow.main+xml"},
    {".potx", "application/vnd.openxmlformats-officedocument.presentationml.template.main+xml"},
    {".pptm", "application/vnd.ms-powerpoint.presentation.macroEnabled.main+xml"},
    {".ppsm", "application/vnd.ms-powerpoint.slideshow.macroEnabled.main+xml"},
    {".potm", "application/vnd.ms-powerpoint.template.macroEnabled.main+xml"},
};

}  // namespace

bool isPresentationType(std::string_view contentType) {
  return std::ranges::find(kinds, contentType, &FileKind::contentType) != std::end(kinds);
}

std::string typeForFile(const std::string& path, const std::string& contentType) {
  const std::string name = base::toLower(path);
  const auto kind =
      std::ranges::find_if(kinds, [&](const FileKind& one) { return name.ends_with(one.extension); });
  return kind == std::end(kinds) ? contentType : std::string(kind->contentType);
}

bool mayHoldMacros(std::string_view contentType) {
  return contentType.find("macroEnabled") != std::string_view::npos;
}

}  // namespace vellumark::deck
