#include "platform/private_folder.h"

#include <filesystem>

#include "platform/paths.h"

namespace vellumark::platform {

void dropPrivateFolder(const std::string& file) {
  const std::filesystem::path folder = pathOf(toSystem(file)).parent_path();
  std::error_code error;  // one that isn't empty stays
  if (textOf(folder.filename()).starts_with("vellumark-")) std::filesystem::remove(folder, error);
}

}  // namespace vellumark::platform
