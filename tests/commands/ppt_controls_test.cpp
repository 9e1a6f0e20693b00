// The tools bar of hosts before the ribbon: what stands on it, where it stands, what its buttons do.

#include "commands/ppt_controls.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "commands/commands_stage.h"

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
  host::CommandBar toolbar() { return host->application().CommandBars().Item(toolsBar::name); }
};

TEST_F(Toolbars, Entries) {
  const host::CommandBarControls controls = bar();
  EXPECT_EQ(controls.Count(), 1 + 6 + 2 + 25 + 2 + 2);
  EXPECT_EQ(controls.Item(1).Parameter(), "!about");
  EXPECT_EQ(controls.Item(8).Id(), 408);
  EXPECT_TRUE(controls.Item(8).BeginGroup());
  EXPECT_EQ(controls.Item(9).Id(), 465);
  EXPECT_EQ(controls.Item(35).Parameter(), "setLanguage 1033");
  EXPECT_EQ(controls.Item(35).TooltipText(), "English US spell checking for selected slides or shapes");
  EXPECT_EQ(controls.Item(36).Parameter(), "setLanguage 1031");
  EXPECT_EQ(controls.Item(37).Controls().Count(), 19);
  EXPECT_EQ(controls.Item(38).Controls().Count(), 7);

  // The captions are the labels of the commands, so every entry must have one with a label.
  for (const auto& entries : {toolsBar::alignEntries(), toolsBar::barEntries(), toolsBar::toolsEntries(),
                              toolsBar::helpEntries()}) {
    for (const toolsBar::Entry& entry : entries) EXPECT_NE(entry.caption(), "") << entry.parameter;
  }
  const host::CommandBarButton settings = entry("Settings", "Tools");
  EXPECT_EQ(settings.FaceId(), 855);
  EXPECT_EQ(settings.HelpContextId(), 1240);
  EXPECT_TRUE(settings.BeginGroup());
  const host::CommandBarButton stretch = entry("Stretch to master left");
  EXPECT_EQ(stretch.DescriptionText(), "14") << "its picture";
  EXPECT_EQ(stretch.Tag(), "zorp_TrimlineTools");
  EXPECT_EQ(core::globals().styleNames, Texts{"Blue"}) << "the menus' configuration is loaded";
  EXPECT_EQ(messages.take(), Texts{});
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
}

TEST_F(Toolbars, TheBarKeepsItsPlace) {
  EXPECT_EQ(toolbar().Position(), 4);
  EXPECT_EQ(toolbar().Top(), 200);
  EXPECT_EQ(toolbar().Left(), 200);
  EXPECT_EQ(toolbar().Height(), 52) << "floating";
  EXPECT_TRUE(toolbar().Visible());

  toolbar().Position(1);
  toolbar().RowIndex(3);
  toolbar().Top(7);
  toolbar().Left(45);
  toolbar().Visible(false);
  controls->DeleteControls();
  EXPECT_EQ(host->application().CommandBars().Count(), 0);
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

TEST_F(Toolbars, InHelpModeAClickRunsNothing) {
  controls->enableControls();
  for (const auto& [caption, popup] : {std::pair("Align angles", ""), {"Create motion path", "Tools"}}) {
    EXPECT_TRUE(entry(caption, popup).Enabled()) << caption;
  }
  select({"A", "M"});
  core::globals().helpMode = true;
  click("Align left to master left");
  EXPECT_FLOAT_EQ(shape("A").Left(), 10);
  EXPECT_EQ(counters(), "");
}

}  // namespace
}  // namespace vellumark::commands
