#include "core/xml.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "support/temp_folder.h"

namespace vellumark::core {
namespace {

TEST(LoadXml, ReadsTheUsualEncodings) {
  const std::pair<const char*, std::string> files[] = {
      {"no declaration", "<r a='é€'/>"},
      {"mark", "\xEF\xBB\xBF<r a='é€'/>"},
      {"declared", "<?xml version='1.0' encoding='utf-8'?>\r\n<r a='é€'/>"},
      {"code page", "<?xml version='1.0' encoding='Windows-1252'?><r a='\xE9\x80'/>"},
      {"two bytes", std::string("\xFF\xFE<\0r\0 \0a\0=\0'\0\xE9\0\xAC\x20'\0/\0>\0", 24)},
  };
  const test::TempFolder folder;
  for (const auto& [name, bytes] : files) {
    pugi::xml_document document;
    EXPECT_TRUE(loadXml(document, folder.write("file.xml", bytes))) << name;
    EXPECT_STREQ(document.child("r").attribute("a").value(), "é€") << name;
  }
}

TEST(LoadXml, WhatIsNoDocumentLeavesItEmpty) {
  const test::TempFolder folder;
  for (const char* bytes : {"", "text", "<r>", "<r><a></r>", "<r/><r/>", "<!-- only -->", "<r a=1/>"}) {
    pugi::xml_document document;
    document.append_child("before");
    EXPECT_FALSE(loadXml(document, folder.write("file.xml", bytes))) << bytes;
    EXPECT_FALSE(document.first_child()) << bytes;
  }
  pugi::xml_document document;
  EXPECT_FALSE(loadXml(document, folder.path("missing.xml")));
  EXPECT_FALSE(loadXml(document, folder.root().string()));
}

TEST(SaveXml, WritesOneLineOverTheOldFile) {
  const test::TempFolder folder;
  pugi::xml_document document;
  ASSERT_TRUE(parseXml(document, "<?xml version='1.0'?><r a='é &lt; \"'> <b/>\n</r>"));
  saveXml(document, folder.write("file.xml", "before"));
  EXPECT_EQ(test::readFile(folder.path("file.xml")), "<r a=\"é &lt; &quot;\"><b/></r>");
  EXPECT_THROW(saveXml(document, folder.path("file.xml") + "/x.xml"), base::Error);
}

}  // namespace
}  // namespace vellumark::core
