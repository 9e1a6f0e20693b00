#include "platform/ansi.h"

#include <gtest/gtest.h>

namespace vellumark::platform {
namespace {

TEST(Ansi, EveryByteSurvivesTheRoundTrip) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string one(1, static_cast<char>(byte));
    EXPECT_EQ(toAnsi(fromAnsi(one)), one) << byte;
  }
}

TEST(Ansi, MapsTheCodePage) {
  const std::pair<const char*, const char*> cases[] = {
      {"Größe €5 – ‘a’ Ÿ",
       "Gr\xF6\xDF"
       "e \x80"
       "5 \x96 \x91"
       "a\x92 \x9F"},
      {"\xC2\x81\xC2\x9D", "\x81\x9D"},
  };
  for (const auto& [utf8, ansi] : cases) {
    EXPECT_EQ(toAnsi(utf8), ansi);
    EXPECT_EQ(fromAnsi(ansi), utf8);
  }
}

TEST(Ansi, WhatHasNoPlaceBecomesAQuestionMark) {
  EXPECT_EQ(toAnsi("aŁ日\xC2\x80z"), "a???z");
  EXPECT_EQ(toAnsi("😀"), "??");
  EXPECT_EQ(toAnsi("a\xFFz"), "a?z");
}

}  // namespace
}  // namespace vellumark::platform
