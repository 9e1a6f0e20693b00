#include "platform/http.h"

#include <windows.h>
#include <wininet.h>

#include <memory>

#include "platform/ansi.h"

namespace vellumark::platform {
namespace {

struct CloseInternet {
  void operator()(void* handle) const { InternetCloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseInternet>;

constexpr std::size_t mostBytes = 16 << 20;

const char* orNothing(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

std::string readAnswer(HINTERNET request) {
  std::string answer;
  char block[128];
  DWORD count = 0;
  while (InternetReadFile(request, block, sizeof block, &count) && count > 0) {
    answer.append(block, count);
    if (answer.size() >= mostBytes) {
      answer.resize(mostBytes);
      break;
    }
  }
  return answer;
}

}  // namespace

std::string send(const HttpRequest& request) {
  const DWORD access = request.systemProxy ? INTERNET_OPEN_TYPE_PRECONFIG : INTERNET_OPEN_TYPE_DIRECT;
  const Handle internet(InternetOpenA(request.agent.c_str(), access, nullptr, nullptr, 0));
  const Handle connection(InternetConnectA(internet.get(), request.host.c_str(),
                                           static_cast<INTERNET_PORT>(request.port), orNothing(request.user),
                                           orNothing(request.password), INTERNET_SERVICE_HTTP, 0, 0));
  constexpr DWORD flags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_KEEP_CONNECTION;
  const Handle open(HttpOpenRequestA(connection.get(), request.verb.c_str(), request.path.c_str(), "HTTP/1.0",
                                     nullptr, nullptr, flags, 0));
  constexpr DWORD add = HTTP_ADDREQ_FLAG_ADD | HTTP_ADDREQ_FLAG_REPLACE;
  for (const std::string& header : request.headers) {
    HttpAddRequestHeadersA(open.get(), header.c_str(), static_cast<DWORD>(header.size()), add);
  }
  std::string body = request.body;
  HttpSendRequestA(open.get(), nullptr, 0, body.data(), static_cast<DWORD>(body.size()));
  return readAnswer(open.get());
}

}  // namespace vellumark::platform
