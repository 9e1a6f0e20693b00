#pragma once
// The HTTP client: one blocking post of a form, and the encoding of its values.

#include <string>

namespace vellumark::core {

/// Posts `body` and returns the bytes of the answer's body, empty where anything fails. The status is not
/// looked at. `accessType` 0 means the system's configured proxy.
std::string HttpPost(std::string url, const std::string& body, int accessType, int port,
                     const std::string& user, const std::string& password);

/// Percent-encodes `text` as bytes of the ANSI code page; only digits and ASCII letters stay as they are.
std::string URLEncode(const std::string& text);

}  // namespace vellumark::core
