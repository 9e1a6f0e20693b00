#include "core/slide_extracts.h"

#include <memory>
#include <vector>

#include "base/text.h"
#include "core/registry.h"
#include "platform/path_lock.h"
#include "platform/paths.h"
#include "platform/private_folder.h"
#include "platform/settings_store.h"

namespace vellumark::core {
namespace {

constexpr const char* setting = "slideExtracts";
constexpr std::chrono::seconds patience(5);

std::string folderOf(const std::string& file) { return file.substr(0, file.find_last_of("\\/") + 1); }

/// The folders of this program's own extracts.
std::vector<std::unique_ptr<platform::PathLock>>& ownFolders() {
  static std::vector<std::unique_ptr<platform::PathLock>> locks;
  return locks;
}

/// Each name is followed by a ";".
std::string listed() { return getRegistry(setting, "", ""); }

}  // namespace

std::string newSlideExtract(const std::string& name) {
  const std::string folder = platform::newPrivateFolder();
  ownFolders().push_back(std::make_unique<platform::PathLock>(folder));
  return folder + name;
}

void rememberSlideExtract(const std::string& path) {
  const platform::PathLock list(platform::settingsFolder(), patience);
  setRegistry(setting, listed() + path + ";", "");
}

void deleteSlideExtracts() {
  ownFolders().clear();
  if (listed().empty()) return;
  const platform::PathLock list(platform::settingsFolder(), patience);
  std::string files = listed(), kept;
  if (!files.empty()) files.pop_back();
  for (const std::string& file : base::split(files, ';')) {
    if (!platform::fileExists(file)) continue;
    const platform::PathLock folder(folderOf(file));
    if (folder.held()) {
      platform::deleteFile(file);
      platform::dropPrivateFolder(file);
    } else {
      kept += file + ";";
    }
  }
  setRegistry(setting, kept, "");
}

}  // namespace vellumark::core
