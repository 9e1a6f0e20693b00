#include "platform/posix/http_proxy.h"

#include <gtest/gtest.h>

#include "platform/environment_guard.h"

namespace vellumark::platform {
namespace {

TEST(HttpProxy, ReadsTheForms) {
  const test::EnvironmentGuard exceptions("no_proxy", std::nullopt);
  struct {
    const char* setting;
    const char* host;
    int port;
    const char* credentials;
  } const cases[] = {
      {"proxy", "proxy", 80, ""},
      {"HTTP://proxy:3128/", "proxy", 3128, ""},
      {"http://a:b%40@c:8080", "c", 8080, "a:b@"},
      {"[::1]:3128", "[::1]", 3128, ""},
      {"[::1]", "[::1]", 80, ""},
  };
  for (const auto& test : cases) {
    const test::EnvironmentGuard setting("http_proxy", test.setting);
    const auto proxy = proxyFor("www.example.com", 80);
    ASSERT_TRUE(proxy) << test.setting;
    EXPECT_EQ(proxy->host, test.host);
    EXPECT_EQ(proxy->port, test.port);
    EXPECT_EQ(proxy->credentials, test.credentials);
  }
  const test::EnvironmentGuard none("http_proxy", "");
  EXPECT_FALSE(proxyFor("www.example.com", 80));
}

TEST(HttpProxy, LeavesOutTheExceptions) {
  const test::EnvironmentGuard setting("http_proxy", "proxy");
  struct {
    const char* exceptions;
    bool excepted;
  } const cases[] = {
      {"*", true},
      {"localhost, EXAMPLE.com", true},
      {".example.com", true},
      {"www.example.com:80", true},
      {"www.example.com:8080", false},
      {"ample.com", false},
      {"other.com,,", false},
      {"", false},
  };
  for (const auto& test : cases) {
    const test::EnvironmentGuard exceptions("no_proxy", test.exceptions);
    EXPECT_EQ(proxyFor("www.Example.com", 80).has_value(), !test.excepted) << test.exceptions;
  }
}

}  // namespace
}  // namespace vellumark::platform
