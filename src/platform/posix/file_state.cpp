#include "platform/file_state.h"

#include <sys/stat.h>

#include "platform/paths.h"

namespace vellumark::platform {

std::optional<FileState> fileState(const std::string& path) {
  struct stat found;
  if (::stat(toSystem(path).c_str(), &found) != 0) return std::nullopt;
  const auto number = [](auto value) { return static_cast<std::uint64_t>(value); };
  return FileState{{number(found.st_dev), number(found.st_ino)},
                   {number(found.st_size), number(found.st_mtim.tv_sec), number(found.st_mtim.tv_nsec)}};
}

}  // namespace vellumark::platform
