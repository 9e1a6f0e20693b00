// The settings dialog: its pages, what it reads, what saving changes at once.

#include "services/settings.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "commands/commands_stage.h"

namespace vellumark::services {
namespace {

using test::FakeObject;
using test::Texts;

constexpr const char* untouched = "untouched";

class SettingsTest : public test::CommandsStage {
 protected:
  ~SettingsTest() override { unloadIcons(); }

  /// Connects to a host, with a ribbon that tells what is asked anew.
  void start(const std::string& version) {
    deck.slide();
    open(version);
    FakeObject::Function invalidate = [this](std::span<const host::Value> arguments) {
      invalidated += arguments[0].toString() + " ";
      return host::Value();
    };
    core::globals().ribbonUI = host::IRibbonUI(std::make_shared<FakeObject>(
        "IRibbonUI", std::map<std::string, host::Value>{},
        std::map<std::string, FakeObject::Function>{{"InvalidateControl", std::move(invalidate)}}));
  }
  /// Works the dialog by a script; the answer is what was told.
  std::string work(const std::string& steps) {
    messages.take();
    messages.toolkit().addDialog("Settings: " + steps);
    showSettings();
    Texts told = messages.take();
    if (!told.empty()) told.erase(told.begin());  // the dialog itself comes first
    return base::join(told, "; ");
  }
  static std::string setting(const std::string& name) { return core::getRegistry(name, "", untouched); }
  static std::string drawn(const ui::PictureBox& picture) {
    for (const ui::Canvas::Command& command : picture.canvas().commands()) {
      if (const auto* text = std::get_if<ui::Canvas::Text>(&command)) return text->text;
    }
    return {};
  }

  std::string invalidated;
};

TEST_F(SettingsTest, TheMenuColumnSwitchesThePages) {
  for (const auto& [version, tools] : {std::pair("11.0", true), {"14.0", false}, {"15.0", false}}) {
    SCOPED_TRACE(version);
    start(version);
    Settings dialog;
    dialog.load();
    EXPECT_EQ(dialog.caption(), "Vellumark for presentations - Settings");
    std::string entries;
    for (std::size_t i = 0; i < Settings::pages; ++i) {
      if (dialog.menuBox[i].visible()) entries += dialog.menuLabel[i].caption() + " ";
    }
    EXPECT_EQ(entries, std::string("General Text Updates ") + (tools ? "Trimline Tools " : ""));

    // What can be reached on each page, and which entry is marked.
    const struct {
      ui::Control& entry;
      std::size_t page;
      ui::Control& content;
    } cases[] = {{dialog.menuBox[0], 0, dialog.cbScreensaver},
                 {dialog.menuLabel[4], 4, dialog.lngDropdown[2]},
                 {dialog.menuBox[5], 5, dialog.lAutoUpdateInfo},
                 {dialog.menuLabel[6], 6, dialog.tlnList}};
    for (const auto& shown : cases) {
      if (shown.page == Settings::toolsPage && !tools) continue;
      EXPECT_TRUE(dialog.click(shown.entry));
      for (const auto& other : cases) {
        EXPECT_EQ(ui::isCovered(dialog.layout(), other.content), &other != &shown) << other.content.name();
      }
      for (std::size_t i = 0; i < Settings::pages; ++i) {
        const bool marked = i == shown.page;
        EXPECT_EQ(dialog.menuLabel[i].backColor(), marked ? ui::rgb(192, 42, 38) : ui::rgb(224, 224, 224));
        EXPECT_EQ(dialog.menuBox[i].backColor(), dialog.menuLabel[i].backColor());
        EXPECT_EQ(dialog.menuLabel[i].foreColor(), marked ? ui::rgb(255, 255, 255) : ui::rgb(0, 0, 0));
      }
    }
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(SettingsTest, LanguagesGoToTheirButtons) {
  constexpr const char* restart =
      "Vellumark for presentations [information] The language settings will take effect after restarting "
      "PowerPoint.";
  constexpr const char* buttons = "zp_1093 zp_1094 zp_1095 ";
  struct Case {
    const char* version;
    const char* steps;
    const char* languages;
    std::array<std::int32_t, 3> shortcuts;
    const char* pictures;
    const char* invalidated;
    const char* told;
  };
  const Case cases[] = {
      {"14.0", "btnSave", "1033;1031", {1033, 1031, 0}, "EN DE  ", buttons, ""},
      {"12.0",
       "lngDropdown(0)=French; lngDropdown(2)=French; btnSave",
       "1036;1031;1036",
       {1036, 1031, 1036},
       "FR DE FR ",
       buttons,
       ""},
      {"14.0", "lngDropdown(0)=#0; btnSave", "1031", {0, 1031, 0}, "EN DE  ", buttons, ""},
      {"15.0", "lngDropdown(1)=Zulu; btnSave", "1033;1077", {1033, 1077, 0}, "EN ZU  ", "", restart},
      {"11.0", "lngDropdown(1)=#0; btnSave", "1033", {1033, 0, 0}, "EN DE  ", "", ""},
      {"14.0",
       "lngDropdown(0)=#0; lngDropdown(1)='[No language selected]'; btnSave",
       "",
       {0, 0, 0},
       "EN DE  ",
       buttons,
       ""},
      {"14.0", "lngDropdown(0)=French; btnClose", untouched, {1033, 1031, 0}, "EN DE  ", "", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.steps);
    store.set(folder.path(std::to_string(&c - cases) + ".db"));
    start(c.version);
    invalidated.clear();
    EXPECT_EQ(work(c.steps), c.told);
    EXPECT_EQ(setting("languages"), c.languages);
    EXPECT_EQ(core::globals().languageShortcuts, c.shortcuts);
    EXPECT_EQ(invalidated, c.invalidated);
    std::string pictures;
    for (std::size_t i = 0; i < 3; ++i) pictures += drawn(icons().languagePictures[i]) + " ";
    EXPECT_EQ(pictures, c.pictures);
    unloadIcons();
    core::globals().languageShortcuts = {};
    initializeLanguages();
    if (c.languages != untouched) {
      int used = 0;
      for (const std::int32_t id : core::globals().languageShortcuts) used += id > 0;
      EXPECT_EQ(used, *c.languages ? std::ranges::count(std::string(c.languages), ';') + 1 : 0);
    }
    unloadIcons();
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(SettingsTest, APictureShowsWithItsLanguage) {
  start("14.0");
  Settings dialog;
  dialog.load();
  const auto pictures = [&] {
    std::string text;
    for (std::size_t i = 0; i < 3; ++i) text += dialog.lngPic[i].visible() ? drawn(dialog.lngPic[i]) : "-";
    return text;
  };
  EXPECT_EQ(dialog.lngDropdown[1].text(), "German");
  EXPECT_EQ(dialog.lngDropdown[2].listCount(), 168);
  EXPECT_EQ(pictures(), "ENDE-");
  dialog.lngDropdown[0].text("Polish");
  dialog.lngDropdown[1].listIndex(0);
  EXPECT_EQ(pictures(), "PL--");
}

TEST_F(SettingsTest, TheScreenSaversSwitchWorksAtOnce) {
  start("14.0");
  EXPECT_EQ(work("cbScreensaver=1; btnClose"), "");
  EXPECT_FALSE(core::globals().screenSaverOff);
  EXPECT_EQ(setting("screenSaverOff"), untouched);
  work("cbScreensaver=1; btnSave");
  EXPECT_TRUE(core::globals().screenSaverOff);
  EXPECT_EQ(setting("screenSaverOff"), "1");
  Settings dialog;
  dialog.load();
  EXPECT_TRUE(dialog.cbScreensaver.value());
  work("cbScreensaver=0; btnSave");
  EXPECT_EQ(setting("screenSaverOff"), "0");
}

TEST_F(SettingsTest, TemplatesAreUpdatedOnlyTogetherWithTheProgram) {
  struct Case {
    const char *program, *customization;
    const char* steps;
    const char *savedProgram, *savedCustomization;
  };
  const Case cases[] = {
      {untouched, untouched, "", "1", "1"},
      {"0", "0", "", "0", "0"},
      {"0", "2", "", "1", "1"},
      {"1", "0", "", "1", "0"},
      {"1", "1", "cbAutoUpdateProgram=0; ", "0", "0"},
      {"0", "0", "cbAutoUpdateCustomization=1; ", "1", "1"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.program) + c.customization + c.steps);
    store.set(folder.path(std::to_string(&c - cases) + ".db"));
    start("14.0");
    host->state()->addIns = {{"other.Connect", true, nullptr}, {"zorpu.Connect", false, nullptr}};
    if (c.program != untouched) core::setRegistry("autoUpdateProgram", c.program, "");
    if (c.customization != untouched) core::setRegistry("autoUpdateCustomization", c.customization, "");
    work(std::string(c.steps) + "btnSave");
    EXPECT_EQ(setting("autoUpdateProgram"), c.savedProgram);
    EXPECT_EQ(setting("autoUpdateCustomization"), c.savedCustomization);
  }

  host->state()->addIns.pop_back();
  core::setRegistry("autoUpdateProgram", "1", "");
  Settings dialog;
  dialog.load();
  EXPECT_FALSE(dialog.cbAutoUpdateProgram.enabled() || dialog.cbAutoUpdateProgram.value());
  EXPECT_FALSE(dialog.cbAutoUpdateCustomization.enabled() || dialog.cbAutoUpdateCustomization.value());
  EXPECT_EQ(dialog.lAutoUpdateInfo.caption(),
            "The Add-In for automatic updates has not been installed properly.");
  dialog.click(dialog.btnSave);
  EXPECT_EQ(setting("autoUpdateProgram"), "1") << "left as it was";
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(SettingsTest, ToolsAreShownAndHiddenAtOnceAndAtTheNextStart) {
  start("11.0");
  entry("Stretch to master top").Visible(false);
  {
    Settings dialog;
    dialog.load();
    const ui::ListBox& list = dialog.tlnList;
    EXPECT_EQ(list.listCount(), 38 + 19 + 7) << "the bar, and its popups";
    const int align = list.find("Align left to master left");
    ASSERT_GE(align, 0);
    EXPECT_TRUE(list.checked(align));
    EXPECT_TRUE(list.items()[static_cast<std::size_t>(align)].image.ends_with("zp_1032_16.png"));
    EXPECT_FALSE(list.checked(list.find("Stretch to master top")));
    EXPECT_EQ(list.items()[static_cast<std::size_t>(list.find("Settings"))].image, "")
        << "a face of the host's";
    dialog.click(dialog.tlnSelect);
    EXPECT_TRUE(list.checked(list.find("Stretch to master top")));
  }
  EXPECT_FALSE(entry("Stretch to master top").Visible()) << "nothing is saved yet";

  work("tlnList!uncheck='Align left to master left'; tlnList!uncheck='Create motion path'; btnSave");
  const auto isListed = [](const char* id) {
    const Texts ids = base::split(setting("tlnControls"), ';');
    return std::ranges::find(ids, id) != ids.end();
  };
  EXPECT_FALSE(entry("Align left to master left").Visible());
  EXPECT_FALSE(entry("Create motion path", "Tools").Visible());
  EXPECT_TRUE(entry("Settings", "Tools").Visible());
  EXPECT_FALSE(isListed("1100") || isListed("1142") || isListed("1233") || isListed(""));
  EXPECT_TRUE(isListed("1101") && isListed("1240"));

  start("14.0");
  work("btnSave");
  EXPECT_TRUE(isListed("1101")) << "a host without the list leaves it alone";

  open("11.0");
  EXPECT_FALSE(entry("Align left to master left").Visible());
  EXPECT_TRUE(entry("Align center to master center").Visible());
  EXPECT_TRUE(entry("Settings", "Tools").Visible());
  EXPECT_EQ(failures.take(), Texts{});
}

}  // namespace
}  // namespace vellumark::services
