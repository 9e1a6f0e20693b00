#include "platform/instance_mutex.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "platform/environment.h"
#include "platform/paths.h"

namespace vellumark::platform {
namespace {

int openLockFile(std::string_view name, int flags) {
  std::string file(name);
  for (char& c : file) {
    if (c == '/' || c == '\0') c = '_';
  }
  // Without a folder for such files the user's id keeps the marks of several users apart.
  const auto folder = environmentVariable("XDG_RUNTIME_DIR");
  const std::string path =
      folder ? *folder + "/" + file + ".lock"
             : toSystem(temporaryFolder()) + file + "-" + std::to_string(getuid()) + ".lock";
  return open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | flags, 0600);
}

}  // namespace

InstanceMutex::InstanceMutex(std::string_view name) : handle_(openLockFile(name, O_CREAT)) {
  // Only isSet() of another program can be in the way, and only for a moment.
  for (int attempt = 0; handle_ != -1 && attempt < 20; ++attempt) {
    if (flock(static_cast<int>(handle_), LOCK_SH | LOCK_NB) == 0) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

InstanceMutex::~InstanceMutex() {
  if (handle_ != -1) close(static_cast<int>(handle_));
}

bool InstanceMutex::isSet(std::string_view name) {
  const int handle = openLockFile(name, 0);
  if (handle == -1) return false;
  const bool free = flock(handle, LOCK_EX | LOCK_NB) == 0;
  close(handle);
  return !free;
}

}  // namespace vellumark::platform
