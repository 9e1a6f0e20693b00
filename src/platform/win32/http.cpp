#include "platform/http.h"

#include <windows.h>
#include <wininet.h>

#include <chrono>
#include <memory>
#include <utility>

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

/// The system's client has a limit for each of its steps only; with this one it ends when nobody waits any
/// more.
void limitSteps(HINTERNET internet, std::chrono::milliseconds limit) {
  auto milliseconds = static_cast<DWORD>(2 * limit.count());
  for (const DWORD option :
       {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT, INTERNET_OPTION_RECEIVE_TIMEOUT}) {
    InternetSetOptionA(internet, option, &milliseconds, sizeof milliseconds);
  }
  DWORD once = 1;
  InternetSetOptionA(internet, INTERNET_OPTION_CONNECT_RETRIES, &once, sizeof once);
}

std::string answerTo(const HttpRequest& request) {
  const DWORD access = request.systemProxy ? INTERNET_OPEN_TYPE_PRECONFIG : INTERNET_OPEN_TYPE_DIRECT;
  const Handle internet(InternetOpenA(request.agent.c_str(), access, nullptr, nullptr, 0));
  limitSteps(internet.get(), request.limit);
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

/// An exchange that runs by itself, and that nobody may wait for any more when it ends.
struct Exchange {
  explicit Exchange(HttpRequest request) : request(std::move(request)) {}
  ~Exchange() { CloseHandle(over); }
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;

  const HttpRequest request;
  std::string answer;
  HMODULE module = nullptr;  ///< that this code lies in
  HANDLE over = CreateEventW(nullptr, TRUE, FALSE, nullptr);
};

/// Runs an exchange. It keeps the module loaded until then.
DWORD WINAPI run(void* shared) {
  HMODULE module = nullptr;
  {
    const std::unique_ptr<std::shared_ptr<Exchange>> own(static_cast<std::shared_ptr<Exchange>*>(shared));
    Exchange& exchange = **own;
    module = exchange.module;
    exchange.answer = answerTo(exchange.request);
    SetEvent(exchange.over);
  }
  FreeLibraryAndExitThread(module, 0);
}

}  // namespace

std::string send(const HttpRequest& request) {
  const auto exchange = std::make_shared<Exchange>(request);
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(&run),
                     &exchange->module);
  auto shared = std::make_unique<std::shared_ptr<Exchange>>(exchange);
  const HANDLE thread = CreateThread(nullptr, 0, run, shared.get(), 0, nullptr);
  if (!thread) {
    FreeLibrary(exchange->module);
    return {};
  }
  shared.release();  // the thread's from here on
  CloseHandle(thread);
  const DWORD waited = WaitForSingleObject(exchange->over, static_cast<DWORD>(request.limit.count()));
  return waited == WAIT_OBJECT_0 ? std::move(exchange->answer) : std::string();
}

}  // namespace vellumark::platform
