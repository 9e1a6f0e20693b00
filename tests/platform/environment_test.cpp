#include "platform/environment.h"

#include <gtest/gtest.h>

#include "platform/environment_guard.h"

namespace vellumark::platform {
namespace {

TEST(Environment, ExpandsVariables) {
  const test::EnvironmentGuard set("VELLUMARK_TEST", "x%y");
  const test::EnvironmentGuard empty("VELLUMARK_EMPTY", "");
  const test::EnvironmentGuard missing("VELLUMARK_MISSING", std::nullopt);
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {"plain", "plain"},
      {"a%VELLUMARK_TEST%b", "ax%yb"},
      {"100%", "100%"},
      {"%%", "%%"},
#ifndef _WIN32  // where the second "%" ends the unknown name, and no variable is empty
      {"%VELLUMARK_MISSING%VELLUMARK_TEST%", "%VELLUMARK_MISSINGx%y"},
      {"[%VELLUMARK_EMPTY%]", "[]"},
#endif
      {"[%VELLUMARK_TEST%%VELLUMARK_TEST%]", "[x%yx%y]"}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(expandEnvironment(text), expected);
  EXPECT_FALSE(environmentVariable("VELLUMARK_EMPTY"));
}

}  // namespace
}  // namespace vellumark::platform
