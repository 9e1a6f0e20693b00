#include "platform/posix/temporary_files.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <cstring>
#include <mutex>

namespace vellumark::platform::posix {
namespace {

/// A handler may neither allocate nor wait, so that paths lie in places of their own.
struct Place {
  volatile sig_atomic_t used = 0;
  pid_t owner = 0;  ///< a child that was forked meanwhile leaves the file alone
  std::array<char, PATH_MAX> path;
};
std::array<Place, 8> places;
std::mutex filling;

void removeAll(int signal) {
  for (const Place& place : places) {
    if (place.used && place.owner == ::getpid()) ::unlink(place.path.data());
  }
  // It comes again, to the system's own handler, when this one is left.
  ::signal(signal, SIG_DFL);
  ::raise(signal);
}

void listen() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction now;
    if (::sigaction(signal, nullptr, &now) != 0 || now.sa_handler != SIG_DFL) continue;
    now.sa_handler = removeAll;
    ::sigaction(signal, &now, nullptr);
  }
}

}  // namespace

void removeAtSignals(const std::string& path) {
  const std::scoped_lock lock(filling);
  static std::once_flag listening;
  std::call_once(listening, listen);
  if (path.size() >= PATH_MAX) return;
  for (Place& place : places) {
    if (place.used) continue;
    std::memcpy(place.path.data(), path.c_str(), path.size() + 1);
    place.owner = ::getpid();
    place.used = 1;
    return;
  }
}

void keepAtSignals(const std::string& path) {
  const std::scoped_lock lock(filling);
  for (Place& place : places) {
    if (place.used && path == place.path.data()) place.used = 0;
  }
}

}  // namespace vellumark::platform::posix
