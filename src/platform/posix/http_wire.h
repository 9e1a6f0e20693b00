#pragma once
// HTTP/1.0 on the wire: the text of a request and the reading of an answer.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/http.h"

namespace vellumark::platform {

struct HttpProxy {
  std::string host;
  int port = 80;
  std::string credentials;  ///< "user:password", empty without
};

/// The request's bytes; nothing where host, path or a line holds what would break out of its place. Through a
/// proxy the request line names the whole address.
std::optional<std::string> requestText(const HttpRequest& request, const std::optional<HttpProxy>& proxy);

/// Collects the body of an answer from the bytes as they come.
class AnswerReader {
 public:
  /// Takes the next bytes. False where no further ones are wanted: the answer is whole, too long or none at
  /// all.
  bool take(std::string_view bytes);
  const std::string& body() const { return body_; }

 private:
  bool takeHead();

  std::string head_;  ///< what came so far, until the head is whole
  bool headDone_ = false;
  std::uint64_t missing_ = 0;  ///< bytes of the body still to come
  std::string body_;
};

}  // namespace vellumark::platform
