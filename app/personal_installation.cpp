#include "personal_installation.h"

#include <algorithm>
#include <string_view>
#include <system_error>

namespace vellumark::app {
namespace {

namespace fs = std::filesystem;

/// Folders in which the program writes, and those on the way to them; all others are links.
constexpr std::string_view ownFolders[] = {"", "customization", "customization/styles", "user",
                                           "user/styles"};
/// What the program writes there.
constexpr std::string_view written[] = {"customization/styles/thumbs", "user/styles/thumbs",
                                        "user/myelements"};

template <typename Names>
bool isOneOf(const Names& names, const fs::path& path) {
  return std::ranges::find(names, path.generic_string()) != std::end(names);
}

/// Links to nothing are no longer installed.
void removeDeadLinks(const fs::path& folder) {
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
    std::error_code missing;
    if (entry.is_symlink() && !fs::exists(entry.path(), missing)) fs::remove(entry.path(), missing);
  }
}

bool link(const fs::path& target, const fs::path& place) {
  std::error_code error;
  if (fs::is_symlink(place, error)) {
    if (fs::read_symlink(place, error) == target) return true;
    fs::remove(place, error);
  } else if (fs::exists(place, error)) {
    return true;  // the user's own
  }
  fs::is_directory(target, error) ? fs::create_directory_symlink(target, place, error)
                                  : fs::create_symlink(target, place, error);
  return !error;
}

}  // namespace

bool linkInstallation(const fs::path& installed, const fs::path& personal) {
  for (const std::string_view name : ownFolders) {
    const fs::path from = installed / name, to = personal / name;
    std::error_code error;
    if (!name.empty() && !fs::is_directory(from, error)) continue;
    fs::create_directories(to, error);
    if (error) return false;
    removeDeadLinks(to);
    for (const fs::directory_entry& entry : fs::directory_iterator(from, error)) {
      const fs::path inside = fs::path(name) / entry.path().filename();
      if (isOneOf(ownFolders, inside) || isOneOf(written, inside)) continue;
      if (!link(entry.path(), personal / inside)) return false;
    }
    if (error) return false;
  }
  return true;
}

}  // namespace vellumark::app
