#pragma once
// Sockets by the same few names on every system.

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#undef RGB
#undef interface
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

#include <string>

namespace vellumark::test {

#ifdef _WIN32
using Socket = SOCKET;
inline const Socket noSocket = INVALID_SOCKET;
inline void closeSocket(Socket socket) { closesocket(socket); }
/// Closes a socket that somebody may be waiting at.
inline void wakeAndClose(Socket socket) { closesocket(socket); }
inline bool sendAll(Socket socket, const std::string& bytes) {
  return send(socket, bytes.data(), static_cast<int>(bytes.size()), 0) >= 0;
}
/// Sockets work from here on.
inline void startSockets() {
  WSADATA data;
  WSAStartup(MAKEWORD(2, 2), &data);
}
#else
using Socket = int;
inline constexpr Socket noSocket = -1;
inline void closeSocket(Socket socket) { close(socket); }
inline void wakeAndClose(Socket socket) {
  shutdown(socket, SHUT_RDWR);
  close(socket);
}
inline bool sendAll(Socket socket, const std::string& bytes) {
  return send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) >= 0;
}
inline void startSockets() {}
#endif

}  // namespace vellumark::test
