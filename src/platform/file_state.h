#pragma once
// Telling one file from another, and its content of now from that of before.

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace vellumark::platform {

/// Which file a path leads to, links followed, and when it was written last.
struct FileState {
  std::array<std::uint64_t, 3> file{};     ///< volume and number, however the path is spelt
  std::array<std::uint64_t, 3> content{};  ///< size and time of the last change

  friend bool operator==(const FileState&, const FileState&) = default;
};

/// Nothing where there is no such file, or it can't be reached.
std::optional<FileState> fileState(const std::string& path);

/// Whether both paths lead to one file.
inline bool isSameFile(const std::string& a, const std::string& b) {
  const auto first = fileState(a), second = fileState(b);
  return first && second && first->file == second->file;
}

}  // namespace vellumark::platform
