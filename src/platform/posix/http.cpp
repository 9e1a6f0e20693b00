#include "platform/http.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <utility>

#include "platform/posix/http_proxy.h"
#include "platform/posix/http_wire.h"

namespace vellumark::platform {
namespace {

class Socket {
 public:
  explicit Socket(int handle = -1) : handle_(handle) {}
  ~Socket() {
    if (handle_ != -1) close(handle_);
  }
  Socket(Socket&& other) noexcept : handle_(std::exchange(other.handle_, -1)) {}
  Socket& operator=(Socket&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }

  bool valid() const { return handle_ != -1; }

  bool connectTo(const addrinfo& address) const {
    if (connect(handle_, address.ai_addr, address.ai_addrlen) == 0) return true;
    if (errno != EINTR) return false;
    // An interrupted connect goes on by itself; its end shows as readiness to write.
    pollfd ready{handle_, POLLOUT, 0};
    while (poll(&ready, 1, -1) == -1 && errno == EINTR) continue;
    int error = 0;
    socklen_t size = sizeof error;
    return getsockopt(handle_, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
  }

  /// A peer that closed early is no reason to stop before its answer was read.
  void sendAll(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t count = ::send(handle_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      if (count == -1 && errno == EINTR) continue;
      if (count <= 0) return;
      bytes.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  /// The bytes that come next; none at the end and at a failure.
  std::string_view receive(char* block, std::size_t size) const {
    ssize_t count = 0;
    do {
      count = recv(handle_, block, size, 0);
    } while (count == -1 && errno == EINTR);
    return {block, count > 0 ? static_cast<std::size_t>(count) : 0};
  }

 private:
  int handle_;
};

/// A connection to the first of the host's addresses that takes one.
Socket connectTo(std::string host, int port) {
  if (host.starts_with('[')) host = host.substr(1, host.size() - 2);
  addrinfo hints{};
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_NUMERICSERV;
  addrinfo* found = nullptr;
  if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) return Socket();
  const std::unique_ptr<addrinfo, void (*)(addrinfo*)> addresses(found, freeaddrinfo);
  for (const addrinfo* address = found; address != nullptr; address = address->ai_next) {
    Socket socket(::socket(address->ai_family, address->ai_socktype | SOCK_CLOEXEC, address->ai_protocol));
    if (socket.valid() && socket.connectTo(*address)) return socket;
  }
  return Socket();
}

}  // namespace

std::string send(const HttpRequest& request) {
  const auto proxy = request.systemProxy ? proxyFor(request.host, request.port) : std::nullopt;
  const auto text = requestText(request, proxy);
  if (!text) return {};
  const Socket socket = proxy ? connectTo(proxy->host, proxy->port) : connectTo(request.host, request.port);
  if (!socket.valid()) return {};
  socket.sendAll(*text);

  AnswerReader answer;
  char block[16384];
  for (;;) {
    const std::string_view bytes = socket.receive(block, sizeof block);
    if (bytes.empty() || !answer.take(bytes)) return answer.body();
  }
}

}  // namespace vellumark::platform
