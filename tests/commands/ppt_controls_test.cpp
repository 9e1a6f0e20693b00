// The bars of hosts before the ribbon: what stands on them, where they stand, what the tools' buttons do.

#include "commands/ppt_controls.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "base/text.h"
#include "commands/commands_stage.h"
#include "platform/keyboard.h"
#include "services/icons.h"

namespace vellumark::commands {
namespace {

using test::Texts;

class Toolbars : public test::CommandsStage {
 protected:
  Toolbars() {
    auto slide = deck.slide();
    slide.shape("rect", 10, 20, 100, 50).named("A");
    slide.shape("rect", 200, 100, 120, 80).named("M");
    open("11.0");
  }
  void click(const std::string& caption, const std::string& popup = {}) {
    host::callByName(entry(caption, popup).object(), "Execute");
  }
  /// What can be clicked on the tools bar and in its popup "Tools".
  std::string enabledEntries() {
    std::string enabled;
    for (const host::CommandBarControls& controls : {bar(), bar().Item("Tools").Controls()}) {
      for (int i = 1; i <= controls.Count(); ++i) {
        const host::CommandBarControl control = controls.Item(i);
        if (!control.Enabled()) continue;
        const std::string name = control.Parameter().empty() ? control.Caption() : control.Parameter();
        enabled += (control.Id() == 1 ? name.substr(0, name.find(' ')) : "host") + " ";
      }
    }
    return enabled;
  }
  host::CommandBar toolbar() { return host->application().CommandBars().Item(toolsBar::name); }
};

TEST_F(Toolbars, Entries) {
  EXPECT_EQ(tree(bar()), R"(Vellumark for presentations [!about] help=1000 icon=1 picture
Align left to master left [alignLefts] help=1100 icon=2 picture
Align center to master center [alignCenters] help=1101 icon=3 picture
Align right to master right [alignRights] help=1102 icon=4 picture
Align top to master top [alignTops] group help=1103 icon=5 picture
Align middle to master middle [alignMiddles] help=1104 icon=6 picture
Align bottom to master bottom [alignBottoms] help=1105 icon=7 picture
host 408 group
host 465
Stretch to master width [alignWidths] group help=1120 icon=8 picture
Stretch to master height [alignHeights] help=1121 icon=9 picture
Stretch to master width and height [alignWidthsAndHeights] help=1122 icon=10 picture
Align angles [alignAngles] group help=1130 icon=11 picture
Align process chain [processChain] help=1131 icon=12 picture
Adjust pentagon header [adjustPentagonHeader] help=1132 icon=13 picture
Stretch to master left [stretchLeft] group help=1140 icon=14 picture
Stretch to master right [stretchRight] help=1141 icon=15 picture
Stretch to master top [stretchTop] help=1142 icon=16 picture
Stretch to master bottom [stretchBottom] help=1143 icon=17 picture
Move left to master right [moveLeftToMasterRight] group help=1150 icon=18 picture
Move right to master left [moveRightToMasterLeft] help=1151 icon=19 picture
Move top to master bottom [moveTopToMasterBottom] help=1152 icon=20 picture
Move bottom to master top [moveBottomToMasterTop] help=1153 icon=21 picture
Stretch left to master right [stretchLeftToMasterRight] group help=1160 icon=22 picture
Stretch right to master left [stretchRightToMasterLeft] help=1161 icon=23 picture
Stretch top to master bottom [stretchTopToMasterBottom] help=1162 icon=24 picture
Stretch bottom to master top [stretchBottomToMasterTop] help=1163 icon=25 picture
Switch objects [switchObjects] group help=1170 icon=26 picture
Fit AutoShape to text [adjustAutoShapeToText] group help=1180 icon=29 picture
Wrap text in AutoShape [wrapText] help=1181 icon=30 picture
Set AutoShape margins [setMargins] help=1182 icon=31 picture
Beautify indents [beautifyIndents] group help=1190 icon=32 picture
Decrease indent level [removeIndent] help=1191 icon=33 picture
Increase indent level [addIndent] help=1192 icon=34 picture
English US spell checking for selected slides or shapes [setLanguage 1033] group unmasked
German spell checking for selected slides or shapes [setLanguage 1031] unmasked
Tools group
  Agenda Wizard [showAgendaWizard] group
  Disconnect selected agenda slides from Agenda Wizard [disconnectAgendaSlides]
  Save selected slides as new presentation [saveSelectedSlides] group help=1210 icon=35 picture
  E-mail selected slides [emailSelectedSlides] help=1211 icon=36 picture
  Open containing folder [openContainingFolder] help=1212 icon=37 picture
  Hide selected shapes [hideShapes] group help=1220 icon=38 picture
  Unhide all hidden shapes [unhideShapes] help=1221 icon=39 picture
  Rounded rectangles [roundedRectangles] group help=1245 icon=51 picture
  Beautify block arrows [beautifyBlockArrow] help=1231 icon=41 picture
  Tweak AutoShape adjustments [tweakAutoShapeAdjustments] help=1242 icon=49 picture
  Pick color from screen [pickColorFromScreen] group help=1237 icon=42 picture
  Reset custom colors [resetCustomColors] group help=1244 icon=42 picture
  Set black and white mode [setBlackWhiteMode] group help=1243 icon=50 picture
  Paste on selected slides [pasteOnSelectedSlides] group help=1232 icon=46 picture
  Remove all speech notes [removeAllSpeechNotes] help=1230 icon=40 picture
  Align vertically in golden section [alignVerticallyInGoldenSection] help=1235 icon=47 picture
  Create motion path [createMotionPath] help=1233 icon=43 picture
  Text statistics [countWords] help=1234 icon=44 picture
  Settings [!showSettings] group help=1240 face=855
Help group
  Reference [!reference] face=984
  FAQ [!FAQ] face=610
  Check for updates [!startUpdate] face=610
  Vellumark web site [!homepage] face=610
  Send feedback [!feedback] group face=363
  Recommend to a friend [!recommend] face=363
  Info [!about] group icon=1 picture
)");
  std::string shortcuts;
  const host::CommandBarControls controls = bar(shortcutsBar);
  EXPECT_EQ(controls.Item(1).Parameter(), "!about");
  for (int i = 2; i <= controls.Count(); ++i) shortcuts += std::to_string(controls.Item(i).Id()) + " ";
  EXPECT_EQ(shortcuts,
            "1402 164 165 166 167 170 171 196 197 199 198 206 1042 1043 2061 2062 2063 2710 58 57 ");
  EXPECT_EQ(messages.take(), Texts{});
  EXPECT_EQ(failures.take(), Texts{});

  open("9.0");
  EXPECT_EQ(tree(bar()).find("picture"), std::string::npos) << "the oldest host's buttons take none";
  EXPECT_EQ(entry("Align angles").DescriptionText(), "11");
  EXPECT_EQ(failures.take(), Texts{});
}

// No procedure names them, so nothing ever disables them.
TEST_F(Toolbars, TheseEntriesAreAlwaysEnabled) {
  const std::string always =
      "!about host host setLanguage setLanguage Tools Help showAgendaWizard openContainingFolder "
      "unhideShapes "
      "pickColorFromScreen resetCustomColors setBlackWhiteMode removeAllSpeechNotes !showSettings ";
  for (const char* version : {"9.0", "10.0", "11.0"}) {
    open(version);
    EXPECT_EQ(enabledEntries(), always) << version;
    events->toggle();
    EXPECT_EQ(enabledEntries(), always) << version;
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Toolbars, TheSettingHidesEntriesThatItDoesNotList) {
  core::setRegistry("tlnControls", "1101;1210", "");
  open("11.0");
  std::string visible;
  for (const host::CommandBarControls& controls : {bar(), bar().Item("Tools").Controls()}) {
    for (int i = 1; i <= controls.Count(); ++i) {
      const host::CommandBarControl control = controls.Item(i);
      if (control.Tag() == "zorp_TrimlineTools" && control.Visible()) visible += control.Parameter() + " ";
    }
  }
  EXPECT_EQ(visible, "alignCenters saveSelectedSlides ");
  EXPECT_FALSE(bar(shortcutsBar).Item(1).Visible());
  EXPECT_TRUE(bar(shortcutsBar).Item(2).Visible()) << "the host's own controls stay";
  EXPECT_TRUE(bar(slideWizardBar).Item("My Elements").Controls().Item(1).Visible());
}

TEST_F(Toolbars, TheBarKeepsItsPlace) {
  EXPECT_EQ(toolbar().Position(), 4);
  EXPECT_EQ(toolbar().Top(), 200);
  EXPECT_EQ(toolbar().Left(), 200);
  EXPECT_EQ(toolbar().Height(), 52) << "floating";
  EXPECT_TRUE(toolbar().Visible());
  const host::CommandBars bars = host->application().CommandBars();
  EXPECT_EQ(bars.Item(slideWizardBar).Top(), 260);
  EXPECT_EQ(bars.Item(shortcutsBar).Top(), 320);

  toolbar().Position(1);
  toolbar().RowIndex(3);
  toolbar().Top(7);
  toolbar().Left(45);
  toolbar().Visible(false);
  controls->DeleteControls();
  EXPECT_EQ(bars.Count(), 0);
  EXPECT_EQ(core::getRegistry("visible", toolsBar::name, ""), "0");
  controls->CreateControls();
  EXPECT_EQ(toolbar().Position(), 1);
  EXPECT_EQ(toolbar().RowIndex(), 3);
  EXPECT_EQ(toolbar().Top(), 7);
  EXPECT_EQ(toolbar().Left(), 45);
  EXPECT_FALSE(toolbar().Visible());
  EXPECT_NE(toolbar().Height(), 52);

  const int count = bar().Count();
  controls->CreateControls();
  EXPECT_EQ(bar().Count(), count) << "a bar that is there stays as it is";
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Toolbars, ClicksCountByName) {
  select({"A", "M"});
  click("Align left to master left");
  EXPECT_FLOAT_EQ(shape("A").Left(), 200);
  EXPECT_EQ(counters(), "statsTrimlineTools 1; ");
  struct Case {
    const char* parameter;
    const char* counted;
    const char* told;  ///< part of the message, or of the failure
  };
  const Case cases[] = {
      {"showAgendaWizard", "statsAgendaWizard 1; ", "The Agenda Wizard template seems to be corrupted."},
      {"disconnectAgendaSlides", "statsTrimlineTools 1; ", "If you disconnect agenda slides"},
      {"setLanguage 1031", "statsTrimlineTools 1; ", ""},
      {"insertCopyright 2", "statsSlideWizard 1; ", "copyright_slide.ppt' could not be found."},
      {"!showSettings", "", "presentations - Settings"},
      {"ALIGNrights", "statsTrimlineTools 1; ", ""},
      {"!nonsense 1", "", "pptControls, tlnButton_Click: 438"},
      {"alignTops 1", "statsTrimlineTools 1; ", "pptControls, tlnButton_Click: 450"},
      {"", "statsTrimlineTools 1; ", "pptControls, tlnButton_Click: 438"},
  };
  messages.toolkit().addDialog("Settings: btnClose");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.parameter);
    clearCounters();
    entry("Align top to master top").Parameter(c.parameter);
    click("Align top to master top");
    EXPECT_EQ(counters(), c.counted);
    Texts told = messages.take();
    for (const std::string& failure : failures.take()) told.push_back(failure);
    const std::string all = base::join(told, "; ");
    ASSERT_EQ(told.size(), *c.told ? 1U : 0U) << all;
    EXPECT_NE(all.find(c.told), std::string::npos) << all;
    entry("Align top to master top").Parameter("alignTops");
  }
  EXPECT_FLOAT_EQ(shape("A").Left(), 220) << "a name in another case is the same method";
}

// The selection may have changed without an event since the entry was enabled.
TEST_F(Toolbars, AClickFirstLooksAtTheSelection) {
  select({"A"});
  entry("Align left to master left").Enabled(true);
  click("Align left to master left");
  EXPECT_FALSE(entry("Align left to master left").Enabled());
  EXPECT_EQ(counters(), "");
}

// Buttons that an earlier run left behind have nobody behind them any more.
TEST_F(Toolbars, HandlersGoWithTheirOwner) {
  select({"A", "M"});
  const host::CommandBarButton button = entry("Align left to master left");
  controls.reset();
  button.Execute();
  EXPECT_FLOAT_EQ(shape("A").Left(), 10);
  EXPECT_EQ(counters(), "");
  core::globals().toolbarControls = &controls.emplace();
  controls->PowerPointApp(host->application());
  controls->CreateControls();
  EXPECT_EQ(host->application().CommandBars().Count(), 3);
  controls->DeleteControls();
  EXPECT_EQ(host->application().CommandBars().Count(), 3) << "they aren't its own";
  EXPECT_EQ(failures.take(), Texts{});
}

/// Holds keys down, on a clock of its own.
class HelpMode : public Toolbars {
 protected:
  ~HelpMode() override {
    platform::setKeyReader({});
    services::unloadIcons();
  }
  /// Starts anew on a host of that version; the timer begins with it.
  void start(const std::string& version) {
    services::unloadIcons();
    open(version);
    services::icons();
    platform::setKeyReader([this](platform::Key key) { return keys.count(key) > 0; });
  }
  /// Whether help mode is on a moment after these keys are down.
  bool afterHolding(std::set<platform::Key> down) {
    keys = std::move(down);
    messages.toolkit().pass(1);
    return core::globals().helpMode;
  }
  std::set<platform::Key> keys;
};

TEST_F(HelpMode, LastsFromBothKeysDownToBothKeysUp) {
  using platform::Key;
  for (const char* version : {"9.0", "11.0"}) {
    start(version);
    const std::string before = enabledEntries();
    keys = {Key::control, Key::shift};
    messages.toolkit().pass(49);
    EXPECT_FALSE(core::globals().helpMode) << "it looks for the first time after 50 milliseconds";
    messages.toolkit().pass(1);
    EXPECT_TRUE(core::globals().helpMode);
    EXPECT_EQ(base::split(enabledEntries(), ' ').size(), 58U) << "all of them";
    EXPECT_TRUE(afterHolding({Key::shift}));
    EXPECT_FALSE(afterHolding({}));
    EXPECT_EQ(enabledEntries(), before) << "as the selection has it again";
    EXPECT_FALSE(afterHolding({Key::control}));
    EXPECT_FALSE(afterHolding({Key::shift}));
  }
  for (const char* version : {"12.0", "14.0"}) {
    start(version);
    keys = {Key::control, Key::shift};
    messages.toolkit().pass(60);
    EXPECT_FALSE(core::globals().helpMode);
    EXPECT_FALSE(services::icons().HelpTimer.enabled()) << version;
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(HelpMode, AClickOpensTheHelpAndRunsNothing) {
  folder.write("program/zorp.chm", "help");
  folder.write("opener", "#!/bin/sh\necho \"$1\" > \"" + folder.path("opened") + "\"\n");
  std::filesystem::permissions(folder.path("opener"), std::filesystem::perms::owner_all);
  test::EnvironmentGuard opener("VELLUMARK_OPENER", folder.path("opener"));
  start("11.0");
  select({"A", "M"});
  keys = {platform::Key::control, platform::Key::shift};
  messages.toolkit().pass(50);
  click("Align left to master left");
  EXPECT_FLOAT_EQ(shape("A").Left(), 10);
  EXPECT_EQ(counters(), "");
  EXPECT_TRUE(std::filesystem::exists(folder.path("opened")));
}

}  // namespace
}  // namespace vellumark::commands
