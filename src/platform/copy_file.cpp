#include <fstream>

#include "base/error.h"
#include "platform/atomic_file.h"
#include "platform/paths.h"

namespace vellumark::platform {

void copyFile(const std::string& from, const std::string& to) {
  const std::string bytes = readFile(from);
  const std::string target = toSystem(to);
  AtomicFile file(target);
  std::ofstream out(pathOf(file.temporaryPath()), std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (!out) {
    base::raise(base::errors::fileAccess,
                base::standardDescription(base::errors::fileAccess) + ": " + target + " can't be written");
  }
  file.commit();
}

}  // namespace vellumark::platform
