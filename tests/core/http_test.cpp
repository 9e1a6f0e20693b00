#include "core/http.h"

#include <gtest/gtest.h>

#include "platform/environment_guard.h"
#include "platform/loopback_server.h"

namespace vellumark::core {
namespace {

using test::LoopbackServer;

class HttpPostTest : public testing::Test {
 protected:
  const test::EnvironmentGuard proxy_{"http_proxy", std::nullopt};
  const LoopbackServer::Answer zero_{{"HTTP/1.0 200 OK\r\n\r\n0"}};
};

TEST_F(HttpPostTest, WritesTheRequestByteForByte) {
  LoopbackServer server(zero_);
  EXPECT_EQ(
      HttpPost("  HTTP://127.0.0.1/errorreport.php?a//b ", "description=Größe&x=Ł", 0, server.port(), "", ""),
      "0");
  EXPECT_EQ(server.request(),
            "POST /errorreport.php?a//b HTTP/1.0\r\n"
            "Mozilla/4.0 (compatible; MSIE 6.0; Windows NT 5.1)\r\n"
            "Accept: image/gif, image/x-xbitmap, image/jpeg, image/pjpeg, application/x-shockwave-flash, "
            "application/vnd.ms-excel, application/vnd.ms-powerpoint, application/msword, */*\r\n"
            "Accept-Language: de\r\n"
            "Content-Type: application/x-www-form-urlencoded\r\n"
            "UA-CPU: x86\r\n"
            "Accept-Encoding: gzip, deflate\r\n"
            "Connection: Keep-Alive\r\n"
            "User-Agent: Mozilla/4.0 (compatible; MSIE 6.0; Windows NT 5.1)\r\n"
            "Host: 127.0.0.1:" +
                std::to_string(server.port()) +
                "\r\n"
                "Content-Length: 21\r\n"
                "Pragma: no-cache\r\n"
                "\r\n"
                "description=Gr\xF6\xDF"
                "e&x=?");
}

TEST_F(HttpPostTest, AUrlWithoutAPathPostsToTheRoot) {
  LoopbackServer server(zero_);
  EXPECT_EQ(HttpPost("127.0.0.1", "", 0, server.port(), "", ""), "0");
  EXPECT_TRUE(server.request().starts_with("POST / HTTP/1.0\r\n"));
  EXPECT_NE(server.request().find("\r\nContent-Length: 0\r\n"), std::string::npos);
}

TEST_F(HttpPostTest, AnotherSchemeReachesNobody) {
  LoopbackServer server(zero_);
  const test::EnvironmentGuard proxy("http_proxy", "127.0.0.1:" + std::to_string(server.port()));
  EXPECT_EQ(HttpPost("https://127.0.0.1/x", "a=1", 0, server.port(), "", ""), "");
  EXPECT_EQ(server.request(), "");
}

TEST(UrlEncode, EscapesAllButDigitsAndLetters) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"azAZ09", "azAZ09"},
      {"a b", "a%20b"},
      {"\r\n", "%0D%0A"},
      {"-_.~+", "%2D%5F%2E%7E%2B"},
      {"@[`{/:", "%40%5B%60%7B%2F%3A"},
      {"Ä€", "%C4%80"},
      {"Ł", "%3F"},
  };
  for (const auto& [text, encoded] : cases) EXPECT_EQ(URLEncode(text), encoded);
}

}  // namespace
}  // namespace vellumark::core
