#pragma once
// The host's dialogs for files. Who shows them is the program's to say.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/object.h"

namespace vellumark::deck {

class HostState;

/// What a dialog for files asks.
struct FileQuestion {
  std::int32_t type = 1;  ///< MsoFileDialogType
  std::string title;
  std::string initialFileName;
  std::vector<std::pair<std::string, std::string>> filters;  ///< description and patterns ("*.pptx; *.ppt")
};
/// Answers with a path, or nothing where the user cancels.
using FileAnswerer = std::function<std::optional<std::string>(const FileQuestion&)>;

/// A dialog that is not shown yet; -2147024809 for an unknown type.
host::ObjectRef makeFileDialog(const std::shared_ptr<HostState>& host, std::int32_t type);

}  // namespace vellumark::deck
