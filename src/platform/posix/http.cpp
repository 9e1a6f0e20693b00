#include "platform/http.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <utility>

#include "platform/posix/http_proxy.h"
#include "platform/posix/http_wire.h"

namespace vellumark::platform {
namespace {

/// The moment by which an exchange has to be over.
class Deadline {
 public:
  explicit Deadline(std::chrono::milliseconds limit) : end_(Clock::now() + limit) {}

  std::chrono::milliseconds left() const {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end_ - Clock::now());
    return std::max(left, std::chrono::milliseconds::zero());
  }
  bool passed() const { return left() == std::chrono::milliseconds::zero(); }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point end_;
};

/// A connection that waits for nothing longer than its deadline.
class Socket {
 public:
  explicit Socket(const Deadline& deadline, int handle = -1) : deadline_(&deadline), handle_(handle) {}
  ~Socket() {
    if (handle_ != -1) close(handle_);
  }
  Socket(Socket&& other) noexcept : deadline_(other.deadline_), handle_(std::exchange(other.handle_, -1)) {}
  Socket& operator=(Socket&& other) noexcept {
    deadline_ = other.deadline_;
    std::swap(handle_, other.handle_);
    return *this;
  }

  bool valid() const { return handle_ != -1; }

  bool connectTo(const addrinfo& address) const {
    if (connect(handle_, address.ai_addr, address.ai_addrlen) == 0) return true;
    if (errno != EINPROGRESS && errno != EINTR) return false;
    // A connect under way goes on by itself; its end shows as readiness to write.
    if (!waitFor(POLLOUT)) return false;
    int error = 0;
    socklen_t size = sizeof error;
    return getsockopt(handle_, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
  }

  /// A peer that closed early is no reason to stop before its answer was read.
  void sendAll(std::string_view bytes) const {
    while (!bytes.empty() && waitFor(POLLOUT)) {
      const ssize_t count = ::send(handle_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      if (count == -1 && (errno == EINTR || errno == EAGAIN)) continue;
      if (count <= 0) return;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  /// The bytes that come next; none at the end, at a failure and where none come in time.
  std::string_view receive(char* block, std::size_t size) const {
    ssize_t count = 0;
    do {
      if (!waitFor(POLLIN)) return {};
      count = recv(handle_, block, size, 0);
    } while (count == -1 && (errno == EINTR || errno == EAGAIN));
    return {block, count > 0 ? static_cast<std::size_t>(count) : 0};
  }

 private:
  bool waitFor(short event) const {
    pollfd ready{handle_, event, 0};
    int count = 0;
    do {
      if (deadline_->passed()) return false;
      count = poll(&ready, 1, static_cast<int>(deadline_->left().count()));
    } while (count == -1 && errno == EINTR);
    return count > 0;
  }

  const Deadline* deadline_;
  int handle_;
};

using Addresses = std::shared_ptr<addrinfo>;

Addresses lookUp(const std::string& host, int port) {
  addrinfo hints{};
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_NUMERICSERV;
  addrinfo* found = nullptr;
  if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) return nullptr;
  return {found, freeaddrinfo};
}

/// The system looks names up for as long as it likes: by itself, where nobody waits for it any more.
Addresses lookUp(const std::string& host, int port, const Deadline& deadline) {
  std::packaged_task<Addresses()> task([host, port] { return lookUp(host, port); });
  std::future<Addresses> addresses = task.get_future();
  std::thread(std::move(task)).detach();
  return addresses.wait_for(deadline.left()) == std::future_status::ready ? addresses.get() : nullptr;
}

/// A connection to the first of the host's addresses that takes one.
Socket connectTo(std::string host, int port, const Deadline& deadline) {
  if (host.starts_with('[')) host = host.substr(1, host.size() - 2);
  const Addresses addresses = lookUp(host, port, deadline);
  constexpr int flags = SOCK_CLOEXEC | SOCK_NONBLOCK;
  for (const addrinfo* address = addresses.get(); address != nullptr; address = address->ai_next) {
    Socket socket(deadline, ::socket(address->ai_family, address->ai_socktype | flags, address->ai_protocol));
    if (socket.valid() && socket.connectTo(*address)) return socket;
  }
  return Socket(deadline);
}

}  // namespace

std::string send(const HttpRequest& request) {
  const Deadline deadline(request.limit);
  const auto proxy = request.systemProxy ? proxyFor(request.host, request.port) : std::nullopt;
  const auto text = requestText(request, proxy);
  if (!text) return {};
  const std::string& host = proxy ? proxy->host : request.host;
  const Socket socket = connectTo(host, proxy ? proxy->port : request.port, deadline);
  if (!socket.valid()) return {};
  socket.sendAll(*text);

  AnswerReader answer;
  char block[16384];
  for (;;) {
    const std::string_view bytes = socket.receive(block, sizeof block);
    if (bytes.empty() && deadline.passed()) return {};
    if (bytes.empty() || !answer.take(bytes)) return answer.body();
  }
}

}  // namespace vellumark::platform
