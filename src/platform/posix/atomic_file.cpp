#include "platform/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/error.h"

namespace vellumark::platform {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& what, int code) {
  base::raise(base::errors::fileAccess, what + " (" + std::generic_category().message(code) + ")");
}

/// Where a path leads in the end, also where the last link of the chain names a file that is not there yet.
fs::path followLinks(fs::path path) {
  constexpr int mostLinks = 40;
  std::error_code error;
  for (int links = 0; fs::is_symlink(fs::symlink_status(path, error)); ++links) {
    if (links == mostLinks) fail("can't be written", ELOOP);
    const fs::path next = fs::read_symlink(path, error);
    if (error) fail("can't be written", error.value());
    path = path.parent_path() / next;  // an absolute one replaces the folder
  }
  return path;
}

/// The mode of the file that is replaced, or the one that the user's mask gives a new file.
mode_t modeFor(const fs::path& target) {
  struct stat old;
  if (::stat(target.c_str(), &old) == 0) {
    if (S_ISDIR(old.st_mode)) base::raise(base::errors::fileAccess, "can't be written: it is a folder");
    // Renaming onto a device or pipe would replace the thing itself.
    if (!S_ISREG(old.st_mode)) {
      base::raise(base::errors::fileAccess, "can't be written: it is no ordinary file");
    }
    if (::access(target.c_str(), W_OK) != 0) fail("is write-protected", errno);
    return old.st_mode & 07777;
  }
  if (errno != ENOENT) fail("can't be written", errno);
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

fs::path folderOf(const fs::path& path) {
  return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

}  // namespace

AtomicFile::AtomicFile(const std::string& target) {
  const fs::path resolved = followLinks(target);
  target_ = resolved.string();
  const mode_t mode = modeFor(resolved);
  // A short name of its own: the target's may be as long as the file system allows.
  temporary_ = (folderOf(resolved) / ".vellumark-XXXXXX.tmp").string();
  constexpr int suffix = 4;
  const int file = ::mkostemps(temporary_.data(), suffix, O_CLOEXEC);
  if (file < 0) fail("can't be written: the folder takes no new file", errno);
  ::fchmod(file, mode);
  ::close(file);
}

AtomicFile::~AtomicFile() {
  if (!committed_) ::unlink(temporary_.c_str());
}

bool AtomicFile::replacesOpenFiles() { return true; }

void AtomicFile::commit(Flush flush) {
  if (flush == Flush::now) {
    const int file = ::open(temporary_.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) fail("can't be opened again after writing", errno);
    const int synced = ::fsync(file);
    const int code = errno;
    ::close(file);
    if (synced != 0) fail("can't be brought to the disk", code);
  }
  if (::rename(temporary_.c_str(), target_.c_str()) != 0) fail("can't be replaced", errno);
  committed_ = true;
  if (flush == Flush::later) return;
  // The file is in place. Whether its name has reached the disk is the file system's affair from here on, and
  // some can't sync a folder at all.
  const int folder = ::open(folderOf(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  ::fsync(folder);
  ::close(folder);
}

void flushFolder(const std::string& folder) {
  const int place = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (place < 0) return;
  ::syncfs(place);
  ::close(place);
}

}  // namespace vellumark::platform
