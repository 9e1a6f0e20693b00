#pragma once
// A web server on 127.0.0.1 that takes one request, keeps its bytes and plays a prepared answer.

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/sockets.h"

namespace vellumark::test {

class LoopbackServer {
 public:
  struct Answer {
    std::vector<std::string> pieces;  ///< sent one by one, each in a packet of its own
    bool keepsOpen = false;           ///< leaves the connection open until the client closes it
    bool resets = false;              ///< ends with a reset instead of a close
    bool readsRequest = true;         ///< waits for the whole request before it answers
  };

  explicit LoopbackServer(Answer answer) : answer_(std::move(answer)) {
    startSockets();
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, plain, size) != 0 || listen(listener_, 1) != 0) std::abort();
    getsockname(listener_, plain, &size);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { serve(); });
  }
  ~LoopbackServer() { finish(); }
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  int port() const { return port_; }
  /// The request's bytes, once the exchange is over.
  const std::string& request() {
    finish();
    return request_;
  }

 private:
  void finish() {
    if (!thread_.joinable()) return;
    wakeAndClose(listener_);  // frees a server that nobody asked
    constexpr int bothWays = 2;
    // And one whose client has forgotten its connection.
    if (const Socket client = client_; client != noSocket) shutdown(client, bothWays);
    thread_.join();
    if (const Socket client = client_; client != noSocket) closeSocket(client);
  }

  bool requestIsWhole() const {
    const std::size_t end = request_.find("\r\n\r\n");
    if (end == std::string::npos) return false;
    const std::size_t field = request_.find("Content-Length: ");
    const std::size_t length = field < end ? std::strtoul(request_.c_str() + field + 16, nullptr, 10) : 0;
    return request_.size() >= end + 4 + length;
  }

  bool receive(Socket client) {
    char block[4096];
    const auto count = recv(client, block, sizeof block, 0);
    if (count > 0) request_.append(block, static_cast<std::size_t>(count));
    return count > 0;
  }

  void serve() {
    const Socket client = accept(listener_, nullptr, nullptr);
    if (client == noSocket) return;
    client_ = client;
    while (answer_.readsRequest && !requestIsWhole() && receive(client)) continue;
    for (const std::string& piece : answer_.pieces) {
      if (!sendAll(client, piece)) break;
      if (answer_.pieces.size() > 1) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    while (answer_.keepsOpen && receive(client)) continue;
    constexpr int bothWays = 2;
    if (!answer_.resets) {
      shutdown(client, bothWays);
      return;
    }
    const linger hard{1, 0};
    setsockopt(client, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&hard), sizeof hard);
    client_ = noSocket;
    closeSocket(client);
  }

  Answer answer_;
  Socket listener_ = noSocket;
  std::atomic<Socket> client_ = noSocket;
  int port_ = 0;
  std::string request_;
  std::thread thread_;
};

}  // namespace vellumark::test
