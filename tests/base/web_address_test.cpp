#include "base/web_address.h"

#include <gtest/gtest.h>

namespace vellumark::base {
namespace {

TEST(WebAddress, OnlyAddressesOfTheWebAreNoFiles) {
  struct Case {
    const char* path;
    bool web;
    const char* decoded;
  };
  const Case cases[] = {
      {"https://example.com/a%20b/c.pptx", true, "https://example.com/a b/c.pptx"},
      {"HTTP://example.com", true, "HTTP://example.com"},
      {"C:\\https\\100%.pptx", false, "C:\\https\\100%.pptx"},
      {"\\\\server\\share%4", false, "\\\\server\\share%4"},
      {"file:///a%C3%B6%zz", false, "file:///aö%zz"},
      {"https", false, "https"},
      {"", false, ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(isWebAddress(c.path), c.web) << c.path;
    EXPECT_EQ(percentDecoded(c.path), c.decoded);
  }
}

}  // namespace
}  // namespace vellumark::base
