#include "services/languages.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>

#include "core/globals.h"
#include "core/registry.h"
#include "platform/environment_guard.h"
#include "support/failures.h"
#include "support/temp_folder.h"

namespace vellumark::services {
namespace {

class LanguagesTest : public testing::Test {
 protected:
  ~LanguagesTest() override {
    unloadIcons();
    core::globals() = {};
  }

  /// The text drawn on a picture; empty for an undrawn one.
  static std::string drawnText(std::size_t index) {
    for (const ui::Canvas::Command& command : icons().languagePictures[index].canvas().commands()) {
      if (const auto* text = std::get_if<ui::Canvas::Text>(&command)) return text->text;
    }
    return {};
  }

  test::TempFolder folder_;
  test::EnvironmentGuard store_{"VELLUMARK_SETTINGS", folder_.path("settings.db")};
  test::Failures failures_;
};

TEST_F(LanguagesTest, TheTableHasEachLanguageOnce) {
  initializeLanguages();
  EXPECT_EQ(languageList().Count(), 167);
  EXPECT_EQ(languageList().Item(1).Name(), "Afrikaans");
  EXPECT_EQ(languageList().Item(167).LanguageID(), 1077);
  EXPECT_EQ(languageList().Item("ID2115").Name(), "Uzbek Cyrillic");
  EXPECT_EQ(languageList().Item("ID2115").ISO639(), "ZU");
  for (int i = 1; i <= languageList().Count(); ++i) {
    const Language& language = languageList().Item(i);
    EXPECT_EQ(language.ISO639().size(), 2U) << language.Name();
    EXPECT_FALSE(language.Name().empty());
  }
  // Every id was taken as a key without a failure, and filling the list anew doesn't double it.
  initializeLanguages();
  EXPECT_EQ(languageList().Count(), 167);
  EXPECT_EQ(failures_.take(), std::vector<std::string>{});

  addLanguageToCollection("German again", 1031, "DE");
  EXPECT_EQ(failures_.take(), std::vector<std::string>{"Languages, addLanguageToCollection: 457"});
}

TEST_F(LanguagesTest, TheChosenIdsGetAShortcutAndAPicture) {
  struct Case {
    std::optional<std::string> setting;
    std::array<std::int32_t, 3> shortcuts;
    std::array<const char*, 3> pictures;
    std::vector<std::string> failures;
  };
  const std::string trap = "Languages, initializeLanguages: ";
  const Case cases[] = {
      {std::nullopt, {1033, 1031, 0}, {"EN", "DE", ""}, {}},
      {"", {0, 0, 0}, {"", "", ""}, {}},
      {"1036", {1036, 0, 0}, {"FR", "", ""}, {}},
      {"1036;2068;1077", {1036, 2068, 1077}, {"FR", "NO", "ZU"}, {}},
      {"1036;1031;1033;9999", {1036, 1031, 1033}, {"FR", "DE", "EN"}, {}},
      {"9999;1031", {9999, 0, 0}, {"", "", ""}, {trap + "5"}},
      {"1036;German;1031", {1036, 0, 0}, {"FR", "", ""}, {trap + "13"}},
      {"1036;", {1036, 0, 0}, {"FR", "", ""}, {trap + "13"}},
      {"1036;99999999999", {1036, 0, 0}, {"FR", "", ""}, {trap + "6"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.setting.value_or("none"));
    if (c.setting) core::setRegistry("languages", *c.setting, "");
    initializeLanguages();
    EXPECT_EQ(core::globals().languageShortcuts, c.shortcuts);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(drawnText(i), c.pictures[i]);
    EXPECT_EQ(failures_.take(), c.failures);
    unloadIcons();
    core::globals() = {};
  }
}

}  // namespace
}  // namespace vellumark::services
