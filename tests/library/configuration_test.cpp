#include "library/configuration.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "core/globals.h"
#include "core/template_paths.h"
#include "platform/paths.h"
#include "support/messages.h"
#include "support/temp_folder.h"

namespace vellumark::library {
namespace {

using core::globals;
using Texts = std::vector<std::string>;

const std::string title = "Vellumark for presentations";

class ConfigurationTest : public testing::Test {
 protected:
  ConfigurationTest() {
    const std::string root = platform::fromSystem(folder_.root().string()) + "\\";
    globals().configFolder = root + "config\\";
    globals().stylesFolder = root + "config\\styles\\";
    globals().myElementsFolder = root + "user\\myelements\\";
  }
  ~ConfigurationTest() override { globals() = {}; }

  void writeMenu(const std::string& content) {
    folder_.write("config/menu.xml", "<Vellumark>" + content + "</Vellumark>");
  }
  static Texts names(const pugi::xpath_node_set& nodes) {
    Texts names;
    for (const pugi::xpath_node& node : nodes) names.push_back(node.node().attribute("name").value());
    return names;
  }

  test::TempFolder folder_;
  test::Messages messages_;
};

TEST_F(ConfigurationTest, StylesKeepTheirOrderAndTheFirstIsCurrent) {
  writeMenu(
      R"(<style name="B" folder="b"/><menu name="m"/><style name="A" folder="a"/><style name="B" folder="c"/>)");
  loadMenu(Surface::ribbon);
  EXPECT_EQ(globals().styleNames, (Texts{"B", "A", "B"}));
  EXPECT_EQ(globals().styleFolders, (Texts{"b", "a", "c"}));
  EXPECT_EQ(globals().currentStyle, "B");

  EXPECT_TRUE(core::ribbonTemplatePath("B", "x.ppt").ends_with("\\config\\styles\\B\\x.ppt"));
  EXPECT_TRUE(core::toolbarTemplatePath("b", "x.ppt").ends_with("\\config\\styles\\b\\x.ppt"));
  EXPECT_TRUE(core::agendaTemplatePath(3).ends_with("\\config\\styles\\c\\agendawizard.xml"));
  EXPECT_THROW(core::agendaTemplatePath(0), base::Error);
  EXPECT_THROW(core::agendaTemplatePath(4), base::Error);
}

TEST_F(ConfigurationTest, AMenuWithoutStylesLoads) {
  writeMenu("");
  loadMenu(Surface::ribbon);
  EXPECT_EQ(globals().currentStyle, "");
  EXPECT_EQ(messages_.take(), Texts{});
  writeMenu(R"(<style name="A"/>)");
  EXPECT_THROW(loadMenu(Surface::ribbon), base::Error);
}

TEST_F(ConfigurationTest, WhatCannotBeLoadedIsToldAndLeavesAnEmptyDocument) {
  const std::string tail =
      " \r\n\r\n" + folder_.path("config/menu.xml") + "\r\n\r\n could not be found or is corrupted.";
  const std::string ribbonText = title + " [critical] The Slide Wizard configuration file" + tail;
  const std::string toolbarText = title + " [critical] The menu configuration file" + tail;
  for (const char* content : {"", "<Vellumark><style name='A' folder='a'/>", "<a/><b/>"}) {
    if (*content != '\0') folder_.write("config/menu.xml", content);
    loadMenu(Surface::ribbon);
    loadMenu(Surface::toolbars);
    EXPECT_EQ(messages_.take(), (Texts{ribbonText, toolbarText})) << content;
    EXPECT_TRUE(globals().styleNames.empty());
    ASSERT_TRUE(globals().menuDoc);
    EXPECT_TRUE(menus().empty());
  }
}

TEST_F(ConfigurationTest, NoticesAreTheTrimmedLinesWithoutComments) {
  const std::pair<std::string, Texts> cases[] = {
      {"# only\r\n#comments", {}},
      {"", {}},
      {"  first \r\n\r\n   \r\n # no comment\r\n#comment\r\nlast", {"first", "# no comment", "last"}},
      {"one\ntwo\rthree\n", {"one", "two", "three"}},
      {"\xA9 2026 Gr\xFC\xDF", {"© 2026 Grüß"}},
  };
  loadCopyrightNotices();
  EXPECT_EQ(globals().copyrightNotices, Texts{});
  for (const auto& [content, notices] : cases) {
    folder_.write("config/copyright.txt", content);
    globals().copyrightNotices.clear();
    loadCopyrightNotices();
    EXPECT_EQ(globals().copyrightNotices, notices) << content;
  }
}

TEST_F(ConfigurationTest, MyElementsMayBeMissingOrBroken) {
  loadMyElements();
  EXPECT_FALSE(globals().myElementsDoc);
  EXPECT_EQ(messages_.take(),
            Texts{title + " [information] You haven't added any elements to 'My Elements' yet or "
                          "the database could not be found."});
  folder_.write("user/myelements/myelements.xml", "<Vellumark>");
  loadMyElements();
  EXPECT_TRUE(globals().myElementsDoc && !globals().myElementsDoc->first_child());
  EXPECT_EQ(messages_.take(),
            Texts{title + " [critical] The 'My Elements' database is corrupted.\r\nPlease contact "
                          "us at support@vellumark.example."});
  folder_.write("user/myelements/myelements.xml", "<Vellumark xmlns='urn:x'><group name='g'/></Vellumark>");
  loadMyElements();
  EXPECT_EQ(globals().myElementsDoc->select_nodes("/Vellumark/group").size(), 1U);
  EXPECT_EQ(messages_.take(), Texts{});
}

TEST_F(ConfigurationTest, QueriesGoByNameAndTheHostsIndex) {
  EXPECT_THROW(menus(), base::Error);
  writeMenu(R"(<menu name="M"><submenu name="S"><menuitem name="one"/><menuitem name="two"/></submenu>
                 <submenu name="T's"><menuitem name="three"/></submenu><menuitem name="direct"/></menu>
               <menu name='a"b'><submenu name="S"><menuitem name="four"/></submenu></menu>)");
  loadMenu(Surface::ribbon);
  EXPECT_EQ(names(menus()), (Texts{"M", "a\"b"}));
  EXPECT_EQ(names(submenus("M")), (Texts{"S", "T's"}));
  EXPECT_EQ(names(menuItems("M", "S")), (Texts{"one", "two"}));
  EXPECT_EQ(names(menuItems("M", "T's")), Texts{"three"});
  EXPECT_EQ(names(menuItems("M", "X")), Texts{});
  EXPECT_EQ(names(allMenuItems()), (Texts{"one", "two", "three", "four"}));

  EXPECT_STREQ(menuItem("M", "S", 0).attribute("name").value(), "one");
  EXPECT_EQ(menuItemLabel("M", "S", 1), "two");
  EXPECT_FALSE(menuItem("M", "S", 2));
  EXPECT_FALSE(menuItem("M", "S", -1));
  EXPECT_FALSE(menuItem("M", "S", 2147483647));
  EXPECT_THROW(menuItemLabel("M", "S", 2), base::Error);
  EXPECT_THROW(submenus("a\"b"), base::Error);
}

/// The delivered configuration is one that works: each style's folder is called like the style and exists.
TEST_F(ConfigurationTest, TheDeliveredOneLoads) {
  const std::string delivered = platform::fromSystem(TEST_SOURCE_DIR) + "\\product\\customization\\";
  globals().configFolder = delivered;
  loadMenu(Surface::ribbon);
  loadCopyrightNotices();
  EXPECT_EQ(messages_.take(), Texts{});
  EXPECT_GE(globals().styleNames.size(), 2U);
  EXPECT_EQ(globals().styleNames, globals().styleFolders);
  for (const std::string& style : globals().styleNames) {
    EXPECT_TRUE(platform::directoryExists(delivered + "styles\\" + style)) << style;
  }
  EXPECT_GE(menus().size(), 2U);
  EXPECT_FALSE(globals().copyrightNotices.empty());
  for (const pugi::xpath_node& item : allMenuItems()) {
    EXPECT_TRUE(item.node().attribute("file") && item.node().attribute("slideNo").as_int() > 0);
  }
}

}  // namespace
}  // namespace vellumark::library
