#include <fstream>

#include "base/error.h"
#include "platform/atomic_file.h"
#include "platform/paths.h"

namespace vellumark::platform {

void writeFile(const std::string& path, const std::string& bytes) {
  const std::string target = toSystem(path);
  try {
    AtomicFile file(target);
    std::ofstream out(pathOf(file.temporaryPath()), std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) base::raise(base::errors::fileAccess, "can't be written: the disk takes no more");
    file.commit();
  } catch (const base::Error& error) {
    base::raise(error.number(), target + ": " + error.description());
  }
}

void copyFile(const std::string& from, const std::string& to) { writeFile(to, readFile(from)); }

}  // namespace vellumark::platform
