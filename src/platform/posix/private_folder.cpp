#include "platform/private_folder.h"

#include <stdlib.h>

#include <cerrno>
#include <system_error>

#include "base/error.h"
#include "platform/paths.h"

namespace vellumark::platform {

std::string newPrivateFolder() {
  std::string folder = toSystem(temporaryFolder()) + "vellumark-XXXXXX";
  if (::mkdtemp(folder.data()) == nullptr) {
    base::raise(base::errors::fileAccess,
                "The temporary folder " + toSystem(temporaryFolder()) + " takes no new folder (" +
                    std::generic_category().message(errno) + "); free space there, or set TMPDIR");
  }
  return fromSystem(folder + "/");
}

}  // namespace vellumark::platform
