// The delivered definition of the ribbon against what the add-in answers to.

#include <gtest/gtest.h>

#include <pugixml.hpp>
#include <set>

#include "addin/callbacks.h"
#include "base/text.h"
#include "commands/command_table.h"
#include "core/config.h"
#include "host/picture.h"

namespace vellumark::addin {
namespace {

struct RibbonDefinition : testing::Test {
  RibbonDefinition() {
    if (!document.load_file(TEST_SOURCE_DIR "/product/program/ui/zorpUI.xml"))
      throw std::runtime_error("not XML");
  }
  pugi::xml_document document;
};

TEST_F(RibbonDefinition, EveryCallbackIsOneThatTheAddInAnswers) {
  EXPECT_EQ(document.document_element().attribute("xmlns").value(), std::string(core::customUiNamespace));
  EXPECT_STREQ(document.document_element().attribute("onLoad").value(), "onLoad");
  int callbacks = 0;
  for (const auto& found :
       document.select_nodes("//@*[starts-with(name(), 'get') or starts-with(name(), 'on')]")) {
    EXPECT_NE(findCallback(found.attribute().value()), nullptr) << found.attribute().value();
    ++callbacks;
  }
  EXPECT_GT(callbacks, 30);
}

TEST_F(RibbonDefinition, EveryControlIsACommandWithItsLabelAndRule) {
  std::set<std::string> seen;
  for (const auto& found : document.select_nodes("//button | //toggleButton")) {
    const pugi::xml_node control = found.node();
    const std::string id = control.attribute("id").value();
    ASSERT_TRUE(id.starts_with("zp_")) << id;
    EXPECT_TRUE(seen.insert(id).second) << id << " stands twice";
    const auto number = static_cast<std::int16_t>(std::stoi(id.substr(3)));
    const commands::Command* command = commands::findCommand(number);
    ASSERT_NE(command, nullptr) << id;
    const std::string label = control.attribute("label").value();
    const bool isLanguage = std::string_view(command->method) == "setLanguage";
    EXPECT_TRUE(*command->label ? label == command->label : label.empty() == isLanguage)
        << id << ": " << label;
    for (const char* callback : {"getLabel", "getVisible"}) {
      EXPECT_EQ(!control.attribute(callback).empty(), isLanguage) << id << " " << callback;
    }
    EXPECT_STREQ(control.attribute("getImage").value(), "getImage") << id;
    EXPECT_FALSE(control.attribute("supertip").empty()) << id;
    const auto rule = commands::ruleOf(number);
    EXPECT_EQ(rule && rule->text() != "always", !control.attribute("getEnabled").empty()) << id;
    EXPECT_STREQ(control.attribute("onAction").value(), command->toggle ? "onActionTB" : "onAction") << id;
    EXPECT_EQ(!control.attribute("getPressed").empty(), command->toggle) << id;
  }
  for (const commands::Command& command : commands::commandTable()) {
    for (const int id : {command.id, command.secondId}) {
      EXPECT_TRUE(id == 0 || seen.contains("zp_" + std::to_string(id))) << command.method << " is missing";
    }
  }
}

TEST_F(RibbonDefinition, IdsStandOnceAndHoldersHaveTheirRules) {
  std::set<std::string> seen;
  for (const auto& found : document.select_nodes("//@id")) {
    EXPECT_TRUE(seen.insert(found.attribute().value()).second) << found.attribute().value();
  }
  for (const char* id : {"zp_1070", "zp_1077", "zp_1105"}) {
    const std::string path = std::string("//*[@id='") + id + "']";
    EXPECT_STREQ(document.select_node(path.c_str()).node().attribute("getEnabled").value(), "getEnabled")
        << id;
  }
  const pugi::xml_node styles = document.select_node("//dropDown[@id='zp_1025']").node();
  EXPECT_STREQ(styles.attribute("getVisible").value(), "getVisible");
  for (const auto& [id, callback] :
       {std::pair{"zp_1023", "slideWizard_getContent"}, std::pair{"zp_1026", "copyright_getContent"},
        std::pair{"zp_1027", "myElements_getContent"}}) {
    const std::string path = std::string("//dynamicMenu[@id='") + id + "']";
    EXPECT_STREQ(document.select_node(path.c_str()).node().attribute("getContent").value(), callback) << id;
  }
}

#ifndef _WIN32
TEST_F(RibbonDefinition, EveryImageIsThereInBothSizes) {
  int images = 0;
  for (const auto& found : document.select_nodes("//*[@getImage]")) {
    const std::string id = found.node().attribute("id").value();
    const std::pair<const char*, int> sizes[] = {{".png", 32}, {"_16.png", 16}};
    for (const auto& [ending, pixels] : sizes) {
      const host::ObjectRef picture =
          host::loadPictureFromFile(TEST_SOURCE_DIR "/product/program/ui/" + id + ending);
      ASSERT_TRUE(picture) << id << ending;
      for (const host::Member side : {host::member::Width, host::member::Height}) {
        EXPECT_EQ(picture->invoke(side, host::Invoke::get, {}).toInt(), pixels) << id << ending;
      }
    }
    ++images;
  }
  EXPECT_GT(images, 70);
}
#endif

/// Within a tab no two key tips may be the same, nor one begin like another.
TEST_F(RibbonDefinition, KeyTipsAreUnambiguous) {
  std::vector<std::string> tips;
  for (const auto& found : document.select_nodes("//group//@keytip"))
    tips.push_back(found.attribute().value());
  for (std::size_t i = 0; i < tips.size(); ++i) {
    for (std::size_t j = 0; j < tips.size(); ++j) {
      EXPECT_TRUE(i == j || !tips[i].starts_with(tips[j])) << tips[i] << " and " << tips[j];
    }
    EXPECT_LE(tips[i].size(), 3U) << tips[i];
  }
}

}  // namespace
}  // namespace vellumark::addin
