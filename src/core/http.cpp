#include "core/http.h"

#include "base/text.h"
#include "base/trap.h"
#include "platform/ansi.h"
#include "platform/http.h"

namespace vellumark::core {
namespace {

constexpr const char* agent = "Mozilla/4.0 (compatible; MSIE 6.0; Windows NT 5.1)";

void addHttpHeader(platform::HttpRequest& request, std::string header) {
  base::trap("Wininet, addHttpHeader", [&] {
    while (header.ends_with('\n') || header.ends_with('\r')) header.pop_back();
    request.headers.push_back(std::move(header));
  });
}

}  // namespace

std::string HttpPost(std::string url, const std::string& body, int accessType, int port,
                     const std::string& user, const std::string& password, std::chrono::milliseconds limit) {
  return base::trap("Wininet, HttpPost", [&] {
    url = base::trim(url);
    constexpr std::string_view scheme = "http://";
    if (base::toLower(url.substr(0, scheme.size())) == scheme) url.erase(0, scheme.size());

    platform::HttpRequest request;
    const std::size_t slash = url.find('/');
    request.host = url.substr(0, slash);
    if (slash != std::string::npos) request.path = url.substr(slash);
    request.port = port;
    request.user = user;
    request.password = password;
    request.limit = limit;
    request.systemProxy = accessType == 0;
    request.agent = agent;
    // Servers know the client by this very list; its first line is the agent without a field name.
    addHttpHeader(request, agent);
    addHttpHeader(
        request,
        "Accept: image/gif, image/x-xbitmap, image/jpeg, image/pjpeg, application/x-shockwave-flash, "
        "application/vnd.ms-excel, application/vnd.ms-powerpoint, application/msword, */*");
    addHttpHeader(request, "Accept-Language: de");
    addHttpHeader(request, "Content-Type: application/x-www-form-urlencoded\r\n");
    addHttpHeader(request, "UA-CPU: x86");
    addHttpHeader(request, "Accept-Encoding: gzip, deflate");
    addHttpHeader(request, "Connection: Keep-Alive");
    request.body = platform::toAnsi(body);
    return platform::send(request);
  });
}

std::string URLEncode(const std::string& text) {
  return base::trap("Wininet, URLEncode", [&] {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : platform::toAnsi(text)) {
      if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) {
        encoded += c;
      } else {
        const auto byte = static_cast<unsigned char>(c);
        encoded += {'%', digits[byte >> 4], digits[byte & 0xF]};
      }
    }
    return encoded;
  });
}

}  // namespace vellumark::core
