#include "base/xml_storable.h"

#include <gtest/gtest.h>

namespace vellumark::base {
namespace {

TEST(XmlStorable, WhatNoFileCanHoldIsLeftOut) {
  const struct {
    std::string text, stored;
  } cases[] = {
      {"", ""},
      {"plain <&> text\t\r\n", "plain <&> text\t\r\n"},
      {"Grüße, 日本 😀", "Grüße, 日本 😀"},
      {"a\x01z\x1F", "az"},
      {"a\xEF\xBF\xBEz\xEF\xBF\xBF", "az"},
      {"Caf\xE9", "Caf\xEF\xBF\xBD"},
      {"\xEF\xBF\xBD", "\xEF\xBF\xBD"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(xmlStorable(c.text), c.stored);
    EXPECT_EQ(isXmlStorable(c.text), c.text == c.stored) << c.text;
  }
}

}  // namespace
}  // namespace vellumark::base
