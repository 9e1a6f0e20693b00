#include "platform/posix/http_wire.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"

namespace vellumark::platform {
namespace {

constexpr std::uint64_t longestBody = 16 << 20;
constexpr std::size_t longestHead = 64 << 10;

bool isHost(std::string_view host) {
  const bool literal = host.size() > 2 && host.front() == '[' && host.back() == ']';  // an IPv6 address
  if (literal) host = host.substr(1, host.size() - 2);
  return !host.empty() && host.front() != '-' && std::all_of(host.begin(), host.end(), [&](char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '.' ||
           c == '-' || c == '_' || (literal && (c == ':' || c == '%')) ||
           static_cast<unsigned char>(c) >= 0x80;
  });
}

bool isWord(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](unsigned char c) { return c > ' ' && c != 0x7F; });
}

bool isLine(std::string_view text) {
  return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

std::string base64(std::string_view bytes) {
  constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t group = 0;
    for (std::size_t j = 0; j < 3; ++j) {
      group = group << 8 | (j < count ? static_cast<unsigned char>(bytes[i + j]) : 0U);
    }
    for (std::size_t j = 0; j < 4; ++j) text += j <= count ? digits[group >> (18 - 6 * j) & 0x3F] : '=';
  }
  return text;
}

std::uint64_t parseLength(std::string_view text) {
  std::uint64_t length = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), length);
  const bool whole = result.ec == std::errc{} && result.ptr == text.data() + text.size();
  return whole ? std::min(length, longestBody) : longestBody;
}

}  // namespace

std::optional<std::string> requestText(const HttpRequest& request, const std::optional<HttpProxy>& proxy) {
  const bool fits = isWord(request.verb) && isHost(request.host) && isWord(request.path) &&
                    isLine(request.agent) &&
                    std::all_of(request.headers.begin(), request.headers.end(), isLine) && request.port > 0 &&
                    request.port <= 0xFFFF;
  if (!fits) return std::nullopt;

  const std::string host = request.host + (request.port == 80 ? "" : ":" + std::to_string(request.port));
  std::string text = request.verb + " " + (proxy ? "http://" + host : "") + request.path + " HTTP/1.0\r\n";
  for (const std::string& header : request.headers) text += header + "\r\n";
  text += "User-Agent: " + request.agent + "\r\n";
  text += "Host: " + host + "\r\n";
  text += "Content-Length: " + std::to_string(request.body.size()) + "\r\n";
  text += "Pragma: no-cache\r\n";
  if (!request.user.empty()) {
    text += "Authorization: Basic " + base64(request.user + ":" + request.password) + "\r\n";
  }
  if (proxy && !proxy->credentials.empty()) {
    text += "Proxy-Authorization: Basic " + base64(proxy->credentials) + "\r\n";
  }
  return text + "\r\n" + request.body;
}

bool AnswerReader::take(std::string_view bytes) {
  std::string rest;
  if (!headDone_) {
    head_ += bytes;
    if (!takeHead()) return false;
    if (!headDone_) return true;
    rest.swap(head_);
    bytes = rest;
  }
  bytes = bytes.substr(0, static_cast<std::size_t>(std::min<std::uint64_t>(bytes.size(), missing_)));
  body_ += bytes;
  missing_ -= bytes.size();
  return missing_ > 0;
}

/// Cuts the head off what came so far, once it is whole. False where it will never be one.
bool AnswerReader::takeHead() {
  for (;;) {
    constexpr std::string_view protocol = "HTTP/";
    const auto compared = std::min(head_.size(), protocol.size());
    if (std::string_view(head_).substr(0, compared) != protocol.substr(0, compared)) return false;

    // The head ends with an empty line; lines may end without a carriage return.
    const std::size_t plainEnd = head_.find("\n\n");
    const std::size_t end = std::min(head_.find("\n\r\n"), plainEnd);
    if (end == std::string::npos || end > longestHead) return head_.size() <= longestHead;

    const std::vector<std::string> lines = base::split(std::string_view(head_).substr(0, end), '\n');
    head_.erase(0, end + (end == plainEnd ? 2 : 3));
    const std::size_t blank = lines[0].find(' ');
    const std::string status = blank == std::string::npos ? "" : lines[0].substr(blank + 1, 3);
    if (status.starts_with('1')) continue;  // an interim answer; the real one follows

    headDone_ = true;
    missing_ = status == "204" || status == "304" ? 0 : longestBody;
    for (const std::string& line : lines) {
      const std::size_t colon = line.find(':');
      if (colon == std::string::npos || !base::equalsIgnoreCase(line.substr(0, colon), "Content-Length"))
        continue;
      const std::size_t first = line.find_first_not_of(" \t", colon + 1);
      const std::size_t last = line.find_last_not_of(" \t\r");
      if (first != std::string::npos && last >= first) {
        missing_ = std::min<std::uint64_t>(missing_, parseLength(line.substr(first, last - first + 1)));
      }
    }
    return true;
  }
}

}  // namespace vellumark::platform
