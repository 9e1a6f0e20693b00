#include "base/text.h"

#include <gtest/gtest.h>

namespace vellumark::base {
namespace {

using Parts = std::vector<std::string>;

TEST(Text, TrimsBlanksOnly) {
  EXPECT_EQ(trim("  a b  "), "a b");
  EXPECT_EQ(trim("\t a\n "), "\t a\n");
  EXPECT_EQ(trim("   "), "");
}

TEST(Text, ChangesTheCaseOfAsciiOnly) {
  EXPECT_EQ(toLower("AZaz09Ä"), "azaz09Ä");
  EXPECT_EQ(toUpper("AZaz09ä"), "AZAZ09ä");
  EXPECT_TRUE(equalsIgnoreCase("Menu.XML", "menu.xml"));
  EXPECT_FALSE(equalsIgnoreCase("menu", "menu.xml"));
  EXPECT_FALSE(equalsIgnoreCase("@", "`"));
}

TEST(Text, SplitsAndJoins) {
  EXPECT_EQ(split("", ';'), Parts{});
  EXPECT_EQ(split(";", ';'), (Parts{"", ""}));
  EXPECT_EQ(split("a;;b", ';'), (Parts{"a", "", "b"}));
  EXPECT_EQ(join({}, ";"), "");
  EXPECT_EQ(join({"", "a", ""}, ", "), ", a, ");
  EXPECT_EQ(replaceAll("aaa", "aa", "a"), "aa");
  EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(replaceAll("<&<", "<", "&lt;"), "&lt;&&lt;");
}

TEST(Text, ConvertsBetweenUtf8AndUtf16) {
  const std::pair<const char*, std::u16string> cases[] = {
      {"aé€😀", u"aé€😀"},
      {"\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
       u"\x7F\x80\x7FF\x800\xFFFF\xD800\xDC00\xDBFF\xDFFF"},
  };
  for (const auto& [utf8, utf16] : cases) {
    EXPECT_EQ(toUtf16(utf8), utf16);
    EXPECT_EQ(fromUtf16(utf16), utf8);
  }
}

TEST(Text, ReplacesWhatIsMalformed) {
  const std::pair<const char*, const char16_t*> cases[] = {
      {"a\x80z", u"a\xFFFDz"},                            // a tail without a lead
      {"\xC0\xAF", u"\xFFFD\xFFFD"},                      // overlong
      {"\xE0\x80z", u"\xFFFD\xFFFDz"},                    // overlong, cut short
      {"\xED\xA0\x80", u"\xFFFD\xFFFD\xFFFD"},            // a surrogate
      {"\xE2\x82z", u"\xFFFDz"},                          // the z is not swallowed
      {"\xF0\x9F\x98", u"\xFFFD"},                        // ends within a character
      {"\xF4\x90\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"},  // beyond the last character
      {"\xFF", u"\xFFFD"},
  };
  for (const auto& [utf8, utf16] : cases) {
    EXPECT_EQ(toUtf16(utf8), utf16);
    EXPECT_EQ(length16(utf8), std::u16string_view(utf16).size());
  }
  const char16_t lone[] = {0xD83D, u'a', 0xDE00, 0};
  EXPECT_EQ(fromUtf16(lone),
            "\xEF\xBF\xBD"
            "a"
            "\xEF\xBF\xBD");
}

TEST(Text, CountsAndCutsAsTheHostDoes) {
  EXPECT_EQ(length16("aé€😀"), 5U);
  EXPECT_EQ(mid16("aé€😀b", 1, 2), "é€");
  EXPECT_EQ(mid16("aé€😀b", 3, 99), "😀b");
  EXPECT_EQ(mid16("abc", 3, 1), "");
  EXPECT_EQ(mid16("abc", 9, 1), "");
}

}  // namespace
}  // namespace vellumark::base
