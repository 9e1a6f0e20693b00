#pragma once
// One blocking HTTP request.

#include <chrono>
#include <string>
#include <vector>

namespace vellumark::platform {

struct HttpRequest {
  std::string verb = "POST";
  std::string host;
  int port = 80;
  std::string path = "/";
  std::string agent;
  /// Whole lines as they go on the wire, in this order; one without a colon too.
  std::vector<std::string> headers;
  std::string body;
  std::string user;  ///< none without
  std::string password;
  std::chrono::milliseconds limit = std::chrono::seconds(30);  ///< for all of the exchange
  bool systemProxy = true;  ///< by way of the system's configured proxy, if there is one
};

/// Sends the request as HTTP/1.0 and returns the bytes of the answer's body, whatever its status. Empty where
/// anything fails, and where the answer isn't whole within the limit; what came before a failing read is the
/// answer. An answer is cut at 16 MiB.
///
/// On the wire stand the request line, the given headers, then User-Agent, Host (with the port unless it is
/// 80), Content-Length, "Pragma: no-cache" as a request past all caches carries it, and with a user the
/// Authorization of the basic scheme. No redirection is followed and no encoding of the body undone.
///
/// On Windows the system's own client sends it: headers that it doesn't take, such as a line without a field
/// name, are left out, it puts Connection last, and it follows redirections.
///
/// On Linux the configured proxy is the one that the environment variable http_proxy names, unless no_proxy
/// names the host.
std::string send(const HttpRequest& request);

}  // namespace vellumark::platform
