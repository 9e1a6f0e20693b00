#include "platform/private_folder.h"

#include <array>

#include "base/error.h"
#include "platform/guid.h"
#include "platform/paths.h"
#include "platform/win32/wide.h"

namespace vellumark::platform {

// The temporary folder is the user's own here, and so is what lies in it.
std::string newPrivateFolder() {
  constexpr std::string_view digits = "0123456789abcdef";
  const auto guid = newGuid();
  if (!guid) base::raise(base::errors::fileAccess);
  std::string folder = temporaryFolder() + "vellumark-";
  for (const std::uint8_t byte : *guid) {
    folder += digits[byte / 16];
    folder += digits[byte % 16];
  }
  if (!CreateDirectoryW(win32::widePath(folder).c_str(), nullptr)) {
    win32::raiseFor(base::errors::fileAccess, folder, GetLastError());
  }
  return folder + "\\";
}

}  // namespace vellumark::platform
