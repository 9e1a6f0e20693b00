#pragma once
// The HTTP client: one blocking post of a form, and the encoding of its values.

#include <chrono>
#include <string>

namespace vellumark::core {

/// The longest that the host stands still for an answer: to a post that the user sent, and to the short
/// request by which the add-in tries the line at the host's start.
inline constexpr std::chrono::milliseconds postLimit{5000};
inline constexpr std::chrono::milliseconds pingLimit{2000};

/// Posts `body` and returns the bytes of the answer's body, empty where anything fails or isn't over within
/// `limit`. The status is not looked at. `accessType` 0 means the system's configured proxy.
std::string HttpPost(std::string url, const std::string& body, int accessType, int port,
                     const std::string& user, const std::string& password,
                     std::chrono::milliseconds limit = postLimit);

/// Percent-encodes `text` as bytes of the ANSI code page; only digits and ASCII letters stay as they are.
std::string URLEncode(const std::string& text);

}  // namespace vellumark::core
