#include "platform/path_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

#include "platform/paths.h"

namespace vellumark::platform {

PathLock::PathLock(const std::string& path, std::chrono::milliseconds patience) {
  using Clock = std::chrono::steady_clock;
  constexpr std::chrono::milliseconds pause(10);
  const int file = ::open(toSystem(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  handle_ = file;
  if (file < 0) return;
  for (const auto end = Clock::now() + patience;; std::this_thread::sleep_for(pause)) {
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) return;
    const bool taken = errno == EWOULDBLOCK;
    if (taken && Clock::now() < end) continue;
    held_ = !taken;
    return;
  }
}

PathLock::~PathLock() {
  if (handle_ >= 0) ::close(static_cast<int>(handle_));
}

}  // namespace vellumark::platform
