// What follows when presentations come, are saved, printed and go, and when a slide show runs.

#include <gtest/gtest.h>

#include "agenda/agenda_ties.h"
#include "commands/commands_stage.h"
#include "platform/environment_guard.h"
#include "services/icons.h"
#include "support/overlay.h"

namespace vellumark::commands {
namespace {

using test::Texts;

constexpr const char* staleNumbers =
    "Vellumark for presentations [question] The page numbers on your agenda slides need to be updated.Would "
    "you like to update the page numbers now?";
constexpr const char* temporary =
    "Vellumark for presentations [exclamation] Caution! This presentation is being saved in a temporary "
    "folder.\r\nData in this folder may be deleted or overwritten inadvertently.";

class PresentationEvents : public test::CommandsStage {
 protected:
  PresentationEvents() {
    for (int i = 0; i < 3; ++i) deck.slide();
  }
  ~PresentationEvents() override { services::unloadIcons(); }

  host::Slide slide(int position) { return presentation.Slides().Item(position); }
  std::string tag(const char* name) { return presentation.Tags().Item(name); }
  void setTag(const char* name, const std::string& value) { presentation.Tags().Add(name, value); }
  /// Saves, with these answers to what is asked; whether that was stopped.
  bool saveIsStopped(const std::vector<std::string>& answers = {}) {
    for (const std::string& answer : answers) messages.toolkit().addAnswer(answer);
    slide(1).Tags().Add("changed", "1");
    const bool failed = numberOf([&] { presentation.Save(); }) == base::errors::unspecific;
    EXPECT_EQ(presentation.Saved() == host::msoFalse, failed);
    return failed;
  }
  void raise(host::Member event, const host::Value& argument) {
    host::Value arguments[] = {argument};
    host->state()->raiseEvent(event, arguments);
  }
  std::string order() {
    std::string text;
    for (int i = 1; i <= presentation.Slides().Count(); ++i) text += agenda::orderEntry(slide(i));
    return text;
  }

  // The test's own folder lies in the system's temporary one.
  test::EnvironmentGuard tmp{test::temporaryFolderVariable, folder.path("elsewhere")};
};

TEST_F(PresentationEvents, TemporaryFoldersAreToldOncePerName) {
  open();
  const auto saved = [&] {
    EXPECT_FALSE(saveIsStopped());
    return messages.take();
  };
  EXPECT_EQ(saved(), Texts{});
  tmp.set(folder.root().string());
  events.emplace();
  events->PowerPointApp(core::globals().powerPointApp);
  EXPECT_EQ(saved(), Texts{temporary});
  EXPECT_EQ(saved(), Texts{}) << "the second time under the same name";
  presentation.SaveAs(folder.path("other.pptx"));
  EXPECT_EQ(saved(), Texts{temporary});
  presentation.SaveAs(folder.path("third.pptx"));
  events->noTempFolderWarning = true;
  EXPECT_EQ(saved(), Texts{});
  // A save that is stopped is none.
  events->noTempFolderWarning = false;
  presentation.SaveAs(folder.path("fourth.pptx"));
  slide(1).Tags().Add("zorp_hiddenShapes", "1");
  EXPECT_TRUE(saveIsStopped({"OK", "No"}));
  messages.take();
  slide(1).Tags().Delete("zorp_hiddenShapes");
  EXPECT_EQ(saved(), Texts{temporary});
}

TEST_F(PresentationEvents, TheFolderOfWebPagesIsTemporaryToo) {
  const test::EnvironmentGuard cache("XDG_CACHE_HOME", folder.root().string());
  open();
  EXPECT_FALSE(saveIsStopped());
  EXPECT_EQ(messages.take(), Texts{temporary});
}

TEST_F(PresentationEvents, HiddenShapesAreAskedAbout) {
  open();
  core::globals().currentStyle = "Blue";
  slide(1).Tags().Add("zorp_hiddenShapes", "1");
  slide(3).Tags().Add("zorp_hiddenShapes", "1");
  EXPECT_TRUE(saveIsStopped({"No"}));
  EXPECT_EQ(messages.take(),
            Texts{"Vellumark for presentations [question] There are hidden shapes on slides 1, 3.\r\nPlease "
                  "ensure the hidden shapes do not contain any confidential information before sharing the "
                  "presentation.\r\nWould you like to save the presentation with hidden shapes now?"});
  EXPECT_EQ(tag("zorp_style"), "") << "what wasn't saved has no style";
  EXPECT_FALSE(saveIsStopped({"Yes"}));
  EXPECT_EQ(tag("zorp_style"), "Blue");
  slide(1).Tags().Delete("zorp_hiddenShapes");
  slide(3).Tags().Add("zorp_hiddenShapes", "0");
  messages.take();
  EXPECT_FALSE(saveIsStopped());
  EXPECT_EQ(messages.take(), Texts{});
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(PresentationEvents, AnAgendaGoesWithItsLastSlide) {
  open();
  setTag(agenda::tags::document, "<Vellumark/>");
  setTag(agenda::tags::style, "Blue");
  slide(2).Tags().Add(agenda::tags::kind, agenda::kinds::agendaSlide);
  EXPECT_FALSE(saveIsStopped());
  EXPECT_EQ(tag(agenda::tags::document), "<Vellumark/>");
  slide(2).Delete();
  slide(1).Tags().Add("zorp_hiddenShapes", "1");
  EXPECT_TRUE(saveIsStopped({"No"}));
  EXPECT_EQ(tag(agenda::tags::document), "") << "also where the save is stopped";
  EXPECT_EQ(tag(agenda::tags::style), "Blue");
}

TEST_F(PresentationEvents, StalePageNumbersAreAskedAbout) {
  open();
  EXPECT_FALSE(saveIsStopped());
  setTag(agenda::tags::slideOrder, order());
  EXPECT_FALSE(saveIsStopped());
  raise(host::member::PresentationPrint, presentation.object());
  EXPECT_EQ(messages.take(), Texts{});
  slide(1).Delete();
  EXPECT_FALSE(saveIsStopped({"No"})) << "the save goes on whatever the answer";
  messages.toolkit().addAnswer("No");
  raise(host::member::PresentationPrint, presentation.object());
  EXPECT_EQ(messages.take(), (Texts{staleNumbers, staleNumbers}));
  EXPECT_EQ(failures.take(), Texts{});
  // A yes makes the slides anew, here from a document that can't be read.
  setTag(agenda::tags::document, "broken");
  slide(1).Tags().Add(agenda::tags::kind, agenda::kinds::agendaSlide);
  core::globals().styleNames = {"Blue"};
  EXPECT_FALSE(saveIsStopped({"Yes"}));
  messages.toolkit().addAnswer("Yes");
  raise(host::member::PresentationPrint, presentation.object());
  EXPECT_EQ(failures.take(), (Texts{"AgendaWizard, btnOK_Click: 91", "AgendaWizard, btnOK_Click: 91"}));
}

// Such a host saves every few seconds, without its user.
TEST_F(PresentationEvents, AHostThatSavesByItselfIsAskedOnce) {
  const std::string hidden = "There are hidden shapes on slides ";
  for (const bool byItself : {true, false}) {
    SCOPED_TRACE(byItself);
    open();
    tmp.set(folder.root().string());
    setTag(agenda::tags::slideOrder, order() + "999;");
    slide(1).Tags().Add("zorp_hiddenShapes", "1");
    const host::ObjectRef saved =
        byItself ? test::overlaid(presentation.object(), "AutoSaveOn", host::Value(host::msoTrue))
                 : presentation.object();
    /// What a save asks, the first words of each, and whether it was stopped.
    const auto save = [&](const std::vector<std::string>& answers) {
      for (const std::string& answer : answers) messages.toolkit().addAnswer(answer);
      host::Value arguments[] = {saved, false};
      host->state()->raiseEvent(host::member::PresentationBeforeSave, arguments);
      std::string asked;
      for (const std::string& text : messages.take()) {
        asked += text.find("temporary folder") != std::string::npos ? "folder "
                 : text.find("page numbers") != std::string::npos   ? "numbers "
                                                                    : "hidden ";
      }
      return asked + (arguments[1].toBool() ? "stopped" : "saved");
    };
    EXPECT_EQ(save({"OK", "No", "No"}), "folder numbers hidden stopped");
    if (!byItself) {
      EXPECT_EQ(save({"OK", "No", "Yes"}), "folder numbers hidden saved");
      EXPECT_EQ(save({"No", "No"}), "numbers hidden stopped");
      continue;
    }
    EXPECT_EQ(save({}), "stopped") << "the answers stand";
    slide(2).Tags().Add("zorp_hiddenShapes", "1");
    EXPECT_EQ(save({"Yes"}), "hidden saved") << "another set of slides";
    EXPECT_EQ(save({}), "saved");
    slide(3).Delete();
    EXPECT_EQ(save({"No"}), "numbers saved") << "another order";
    EXPECT_EQ(save({}), "saved");
    host::Value closed[] = {saved};
    host->state()->raiseEvent(host::member::PresentationClose, closed);
    EXPECT_EQ(save({"No", "No"}), "numbers hidden stopped") << "opened again";
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(PresentationEvents, EntriesThatNeedAPresentation) {
  open("11.0");
  const auto entries = [&] {
    return std::pair(entry("Open containing folder", "Tools").Enabled(),
                     entry("Remove all speech notes", "Tools").Enabled());
  };
  select({});
  events->togglePresentation(false);
  const host::Presentation second = host->application().Presentations().Add();
  EXPECT_EQ(entries(), std::pair(false, false)) << "the second one changes nothing";
  second.Close();
  EXPECT_EQ(entries(), std::pair(false, false));
  presentation.Close();
  host->application().Presentations().Add();
  EXPECT_EQ(entries(), std::pair(true, true));
  host->application().Presentations().Item(1).Close();
  EXPECT_EQ(entries(), std::pair(false, false));
  presentation = host->open(folder.path("deck.pptx"));
  EXPECT_EQ(entries(), std::pair(true, true));
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(PresentationEvents, StyleFollowsTheWindow) {
  menu = "<style name='Blue' folder='b'/><style name='Grey' folder='g'/>";
  open("11.0");
  core::Globals& g = core::globals();
  setTag("zorp_style", "Grey");
  host->application().ActiveWindow().Activate();
  EXPECT_EQ(g.currentStyle, "Grey");
  host->application().Presentations().Add();
  EXPECT_EQ(g.currentStyle, "Blue") << "a presentation without a style has the first one";
  host->application().Windows().Item(2).Activate();
  EXPECT_EQ(g.currentStyle, "Grey");
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(PresentationEvents, SlideShowsKeepTheScreenSaverAway) {
  test::EnvironmentGuard noBus("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder.path("no bus"));
  open();
  const auto begin = [&] { raise(host::member::SlideShowBegin, presentation.object()); };
  const auto end = [&] { raise(host::member::SlideShowEnd, presentation.object()); };
  ui::Timer& timer = services::icons().screensaverTimer;
  begin();
  EXPECT_FALSE(timer.enabled());
  core::globals().screenSaverOff = true;
  begin();
  EXPECT_TRUE(timer.enabled());
  EXPECT_EQ(timer.interval(), 30000);
  timer.onTimer();
  core::globals().screenSaverOff = false;
  end();
  EXPECT_TRUE(timer.enabled()) << "a change of the setting doesn't touch a running timer";
  core::globals().screenSaverOff = true;
  end();
  EXPECT_FALSE(timer.enabled());
  EXPECT_EQ(failures.take(), Texts{});
}

}  // namespace
}  // namespace vellumark::commands
