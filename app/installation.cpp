#include "installation.h"

#include <initializer_list>
#include <optional>

#include "failure.h"
#include "personal_installation.h"
#include "platform/paths.h"

namespace vellumark::app {
namespace {

namespace fs = std::filesystem;

/// The first path, seen from the folder of the program's own file, that is there.
std::optional<fs::path> beside(std::initializer_list<const char*> candidates) {
  const fs::path folder = platform::pathOf(platform::toSystem(platform::executablePath())).parent_path();
  for (const char* candidate : candidates) {
    const fs::path path = (folder / candidate).lexically_normal();
    std::error_code missing;
    if (fs::exists(path, missing)) return path;
  }
  return std::nullopt;
}

}  // namespace

fs::path installationRoot(const std::string& given) {
  if (!given.empty()) {
    const fs::path root = platform::pathOf(given);
    std::error_code missing;
    if (fs::is_directory(root, missing)) return fs::absolute(root).lexically_normal();
    throw Failure(Exit::usage,
                  "--root " + given + ": there is no such folder; give the root of an installation");
  }
  if (const auto addIn =
          beside({"../product/addin", "../share/vellumark/addin", "../../share/vellumark/addin"})) {
    const fs::path installed = addIn->parent_path();
    if (platform::folderIsWritable(platform::textOf(installed))) return installed;
    const fs::path personal = platform::pathOf(platform::toSystem(platform::userDataFolder()));
    return linkInstallation(installed, personal) ? personal : installed;
  }
  throw Failure(Exit::usage,
                "the program's installation is missing beside it; name its root with --root DIR");
}

}  // namespace vellumark::app
