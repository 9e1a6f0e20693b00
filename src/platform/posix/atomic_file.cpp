#include "platform/atomic_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

#include "base/error.h"
#include "platform/posix/temporary_files.h"

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

using Status = struct stat;

/// What the system knows of the file that is replaced; nothing where there is none.
std::optional<Status> replaced(const fs::path& target) {
  Status old;
  if (::stat(target.c_str(), &old) == 0) {
    if (S_ISDIR(old.st_mode)) base::raise(base::errors::fileAccess, "can't be written: it is a folder");
    // Renaming onto a device or pipe would replace the thing itself.
    if (!S_ISREG(old.st_mode)) {
      base::raise(base::errors::fileAccess, "can't be written: it is no ordinary file");
    }
    if (::access(target.c_str(), W_OK) != 0) fail("is write-protected", errno);
    return old;
  }
  if (errno != ENOENT) fail("can't be written", errno);
  return {};
}

mode_t modeOfNewFiles() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return 0666 & ~mask;
}

/// Gives a file owner, group and rights of another one. Rights of a group that can't be given are not given
/// to the user's own, beyond those that everybody has.
void takeRights(int file, const fs::path& from, const Status& old) {
  const bool owned = ::fchown(file, old.st_uid, old.st_gid) == 0;
  const bool grouped = owned || ::fchown(file, static_cast<uid_t>(-1), old.st_gid) == 0;
  mode_t mode = old.st_mode & (owned ? 07777 : 0777);
  if (!grouped) mode &= ~070u | ((mode & 07) << 3);
  ::fchmod(file, mode);
  std::string names(static_cast<std::size_t>(std::max<ssize_t>(::listxattr(from.c_str(), nullptr, 0), 0)),
                    '\0');
  const ssize_t length = ::listxattr(from.c_str(), names.data(), names.size());
  for (std::string_view rest(names.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
       !rest.empty();) {
    const std::string name(rest.substr(0, rest.find('\0')));
    rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    if (!name.starts_with("user.") && !(grouped && name == "system.posix_acl_access")) continue;
    char value[64 * 1024];  // no system takes a longer one
    const ssize_t size = ::getxattr(from.c_str(), name.c_str(), value, sizeof value);
    if (size >= 0) ::fsetxattr(file, name.c_str(), value, static_cast<std::size_t>(size), 0);
  }
}

fs::path folderOf(const fs::path& path) {
  return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

constexpr std::string_view prefix = ".vellumark-", suffix = ".tmp";

/// Removes temporary files of the user's that a program which was killed has left: nobody holds their lock.
/// One that was just made may not have it yet.
void removeLeft(const fs::path& folder) {
  constexpr std::time_t justMade = 60;
  std::error_code unreadable;
  for (fs::directory_iterator entry(folder, unreadable), end; !unreadable && entry != end;
       entry.increment(unreadable)) {
    const std::string name = entry->path().filename().string();
    if (!name.starts_with(prefix) || !name.ends_with(suffix)) continue;
    const int file = ::open(entry->path().c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) continue;
    Status status;
    const bool old = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
                     status.st_mtime + justMade < std::time(nullptr);
    if (old && ::flock(file, LOCK_EX | LOCK_NB) == 0) ::unlink(entry->path().c_str());
    ::close(file);
  }
}

}  // namespace

AtomicFile::AtomicFile(const std::string& target) {
  const fs::path resolved = followLinks(target);
  target_ = resolved.string();
  const std::optional<Status> old = replaced(resolved);
  removeLeft(folderOf(resolved));
  // A short name of its own: the target's may be as long as the file system allows.
  temporary_ = (folderOf(resolved) / (std::string(prefix) + "XXXXXX" + std::string(suffix))).string();
  lock_ = ::mkostemps(temporary_.data(), suffix.size(), O_CLOEXEC);
  if (lock_ < 0) fail("can't be written: the folder takes no new file", errno);
  ::flock(lock_, LOCK_EX | LOCK_NB);
  posix::removeAtSignals(temporary_);
  if (old) {
    takeRights(lock_, resolved, *old);
  } else {
    ::fchmod(lock_, modeOfNewFiles());
  }
}

AtomicFile::~AtomicFile() {
  if (!committed_) ::unlink(temporary_.c_str());
  posix::keepAtSignals(temporary_);
  ::close(lock_);
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
  posix::keepAtSignals(temporary_);
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
