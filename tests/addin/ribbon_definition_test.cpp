// The delivered definition of the ribbon against what the add-in answers to.

#include <gtest/gtest.h>

#include <pugixml.hpp>
#include <set>

#include "addin/callbacks.h"
#include "base/text.h"
#include "commands/command_table.h"
#include "core/config.h"

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
  for (const auto& found : document.select_nodes("//*[@onAction]")) {
    const pugi::xml_node control = found.node();
    const std::string id = control.attribute("id").value();
    ASSERT_TRUE(id.starts_with("zp_")) << id;
    EXPECT_TRUE(seen.insert(id).second) << id << " stands twice";
    const auto number = static_cast<std::int16_t>(std::stoi(id.substr(3)));
    const commands::Command* command = commands::findCommand(number);
    ASSERT_NE(command, nullptr) << id;
    EXPECT_TRUE(command->inThisBuild()) << id;
    const std::string label = control.attribute("label").value();
    EXPECT_TRUE(*command->label ? label == command->label : !label.empty()) << id << ": " << label;
    const auto rule = commands::ruleOf(number);
    EXPECT_EQ(rule && rule->text() != "always", !control.attribute("getEnabled").empty()) << id;
    EXPECT_STREQ(control.attribute("onAction").value(), command->toggle ? "onActionTB" : "onAction") << id;
    EXPECT_EQ(!control.attribute("getPressed").empty(), command->toggle) << id;
  }
  for (const commands::Command& command : commands::commandTable()) {
    if (command.id == 0 || !command.inThisBuild()) continue;
    EXPECT_TRUE(seen.contains("zp_" + std::to_string(command.id)) ||
                seen.contains("zp_" + std::to_string(command.secondId)))
        << command.method << " is missing";
  }
}

/// Within a tab no two key tips may be the same, nor one begin like another.
TEST_F(RibbonDefinition, KeyTipsAreUnambiguous) {
  std::vector<std::string> tips;
  for (const auto& found : document.select_nodes("//group//@keytip"))
    tips.push_back(found.attribute().value());
  for (std::size_t i = 0; i < tips.size(); ++i) {
    for (std::size_t j = 0; j < tips.size(); ++j) {
      EXPECT_TRUE(i == j || !tips[i].starts_with(tips[j])) << tips[i] << " and " << tips[j];
    }
  }
}

}  // namespace
}  // namespace vellumark::addin
