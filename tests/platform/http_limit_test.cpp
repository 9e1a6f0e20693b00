// A server that is silent or slow holds nobody longer than the request allows.

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "platform/http.h"
#include "platform/loopback_server.h"

namespace vellumark::platform {
namespace {

using test::LoopbackServer;

TEST(HttpLimit, HoldsForAllOfTheExchange) {
  using std::chrono::milliseconds;
  const std::vector<std::string> drops(400, "x");  // of 5 ms each
  std::vector<std::string> slowBody{"HTTP/1.0 200 OK\r\n\r\n"};
  std::vector<std::string> slowHead{"HTTP/1.0 200 OK\r\nx: "};
  slowBody.insert(slowBody.end(), drops.begin(), drops.end());
  slowHead.insert(slowHead.end(), drops.begin(), drops.end());
  struct {
    const char* what;
    LoopbackServer::Answer answer;
  } const cases[] = {
      {"silent", {{}, true}},
      {"silent before the request was read", {{}, true, false, false}},
      {"whole, but without an end", {{"HTTP/1.0 200 OK\r\n\r\nping"}, true}},
      {"a slow body", {slowBody}},
      {"a slow head", {slowHead}},
  };
  for (const auto& test : cases) {
    LoopbackServer server(test.answer);
    HttpRequest request;
    request.host = "127.0.0.1";
    request.port = server.port();
    request.agent = "agent";
    request.systemProxy = false;
    request.limit = milliseconds(300);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(send(request), "") << test.what;
    const auto took = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(took, milliseconds(250)) << test.what;
    EXPECT_LT(took, milliseconds(1200)) << test.what;
  }
}

}  // namespace
}  // namespace vellumark::platform
