#include "platform/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <vector>

#include "base/error.h"

namespace vellumark::platform {
namespace {

[[noreturn]] void fail(const char* what, int code) {
  base::raise(base::errors::fileAccess,
              std::string(what) + " (" + std::generic_category().message(code) + ")");
}

/// Waits until what was written to a path has reached the disk.
void sync(const std::string& path, int flags) {
  const int file = ::open(path.c_str(), flags | O_CLOEXEC);
  if (file < 0) fail("can't be opened again after writing", errno);
  const int result = ::fsync(file);
  const int code = errno;
  ::close(file);
  // Some file systems can't sync a folder, which is then none of our business.
  if (result != 0 && code != EINVAL && code != EROFS) fail("can't be brought to the disk", code);
}

}  // namespace

AtomicFile::AtomicFile(const std::string& target) {
  std::error_code ignored;
  const std::filesystem::path resolved = std::filesystem::weakly_canonical(target, ignored);
  target_ = ignored ? target : resolved.string();
  if (std::filesystem::is_directory(target_, ignored)) {
    base::raise(base::errors::fileAccess, "can't be written: it is a folder");
  }
  const std::string pattern = target_ + ".XXXXXX.tmp";
  std::vector<char> name(pattern.begin(), pattern.end());
  name.push_back('\0');
  const int file = ::mkstemps(name.data(), 4);
  if (file < 0) fail("can't be written", errno);
  temporary_ = name.data();
  // A new file gets the mode that the user's mask gives, one that replaces another keeps its mode.
  struct stat old;
  if (::stat(target_.c_str(), &old) == 0) {
    ::fchmod(file, old.st_mode & 07777);
  } else {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(file, 0666 & ~mask);
  }
  ::close(file);
}

AtomicFile::~AtomicFile() {
  if (!committed_) ::unlink(temporary_.c_str());
}

void AtomicFile::commit() {
  sync(temporary_, O_RDONLY);
  if (::rename(temporary_.c_str(), target_.c_str()) != 0) fail("can't be replaced", errno);
  committed_ = true;
  sync(std::filesystem::path(target_).parent_path().string(), O_RDONLY | O_DIRECTORY);
}

}  // namespace vellumark::platform
