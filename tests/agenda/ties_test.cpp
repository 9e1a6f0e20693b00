// What ties slides to the agenda: found again wherever they lie, changes by hand noticed, ties cut.

#include <gtest/gtest.h>

#include "agenda/agenda_stage.h"

namespace vellumark::agenda {
namespace {

using test::Texts;

constexpr const char* attention = "Vellumark for presentations [exclamation] Attention:\r\n\r\n";
constexpr const char* overwritten =
    " Please be aware that manual changes will not be carried over to the Agenda Wizard but will be "
    "overwritten as soon as you click 'OK' in the Agenda Wizard dialog.";

class AgendaTies : public test::AgendaStage {
 protected:
  AgendaTies() {
    open(1);
    edit({{.text = "a"}, {.text = "b"}});
    wizard().OK();
    messages.take();
  }

  host::Slide slide(int position) { return presentation.Slides().Item(position); }
  host::Shape shape(int position, const std::string& kind) {
    const host::Shapes shapes = slide(position).Shapes();
    for (int i = 1; i <= shapes.Count(); ++i) {
      if (shapes.Item(i).Tags().Item(tags::kind) == kind) return shapes.Item(i);
    }
    return {};
  }
  void write(int position, const char* kind, const std::string& text) {
    shape(position, kind).TextFrame().TextRange().Text(text);
  }
  std::string storedText() { return presentation.Tags().Item(tags::document); }
};

TEST_F(AgendaTies, SlidesAreFoundByWhatTheyCarry) {
  const std::string id = slide(3).Tags().Item(tags::slideID);
  EXPECT_EQ(findSlide(presentation, id).SlideID(), slide(3).SlideID());
  EXPECT_EQ(findSlide(presentation, std::to_string(slide(1).SlideID())).SlideIndex(), 1);
  std::string other = id;
  other.back() = other.back() == '0' ? '1' : '0';
  for (const std::string& lost : {std::string(), std::string("9999"), std::string("s_"), other, "s_" + id}) {
    EXPECT_FALSE(findSlide(presentation, lost)) << lost;
  }
  EXPECT_EQ(failures.take(), Texts{}) << "a slide that is gone is no failure";
}

TEST_F(AgendaTies, ChangesByHandAreToldWhenTheDialogOpens) {
  EXPECT_EQ(reload().checkForManualChanges(), 0);
  EXPECT_EQ(messages.take(), Texts{});

  // What is added, coloured, moved as a whole or deleted isn't noticed.
  slide(2).Shapes().AddShape(host::msoShapeOval, 0, 0, 10, 10);
  shape(2, kinds::bar).Fill().ForeColor().RGB(0);
  shape(2, kinds::title).Left(1);
  shape(3, kinds::box).Delete();
  EXPECT_EQ(reload().checkForManualChanges(), 0);

  write(2, kinds::title, "");
  EXPECT_EQ(reload().checkForManualChanges(), 1);
  EXPECT_EQ(messages.take(),
            Texts{std::string(attention) + "The contents of some agenda slides were changed manually." +
                  overwritten});
  write(2, kinds::title, "Agenda");
  EXPECT_EQ(reload().checkForManualChanges(), 0);

  const host::Shape bar = shape(3, kinds::bar);
  bar.Width(bar.Width() - 0.5f);
  EXPECT_EQ(reload().checkForManualChanges(), 2);
  EXPECT_EQ(messages.take(),
            Texts{std::string(attention) + "The item positions on some agenda slides were changed manually." +
                  overwritten});
  write(2, kinds::bar, "A");
  EXPECT_EQ(reload().checkForManualChanges(), 3) << "on different slides";
  EXPECT_EQ(messages.take(),
            Texts{std::string(attention) +
                  "Some agenda slides were changed manually, both in terms of content and item position." +
                  overwritten});
  wizard().OK();
  messages.take();
  EXPECT_EQ(reload().checkForManualChanges(), 0) << "all is made anew";
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaTies, TheySurviveAFile) {
  closeWizard();
  reopen();
  core::globals().agenda = &commands;
  EXPECT_EQ(reload().checkForManualChanges(), 0);
  EXPECT_EQ(items(), "1 a; 1 b; ");
  slide(3).Select();
  wizard().OK();
  EXPECT_EQ(presentation.Slides().Count(), 3);
  EXPECT_EQ(messages.take().size(), 1U) << "no new slides";
  EXPECT_EQ(host->application().ActiveWindow().Selection().SlideRange().Item(1).SlideIndex(), 3);
}

TEST_F(AgendaTies, DisconnectedSlidesAreOrdinaryOnes) {
  const std::string before = storedText();
  const host::Shape ownNote = slide(1).Shapes().Item(1);
  ownNote.Tags().Add(tags::content, "mine");
  host->selectSlides(std::array{1, 2});
  messages.toolkit().addAnswer("No");
  tools.disconnectAgendaSlides();
  EXPECT_EQ(
      messages.take(),
      Texts{"Vellumark for presentations [question] If you disconnect agenda slides from the Agenda "
            "Wizard, the Agenda Wizard will not update or remove these slides in the future.\r\n\r\nAre "
            "you sure you want to disconnect the selected agenda slides from the Agenda Wizard?"});
  EXPECT_TRUE(isAgendaSlide(slide(2)));
  tools.disconnectAgendaSlides();
  EXPECT_TRUE(isAgendaSlide(slide(2))) << "No is the default";
  messages.toolkit().addAnswer("Yes");
  tools.disconnectAgendaSlides();
  EXPECT_EQ(slide(2).Tags().Count(), 0);
  for (int i = 1; i <= slide(2).Shapes().Count(); ++i) EXPECT_EQ(slide(2).Shapes().Item(i).Tags().Count(), 0);
  EXPECT_EQ(slide(1).Shapes().Item(1).Tags().Item(tags::content), "mine");
  EXPECT_EQ(storedText(), before);
  reload().OK();
  EXPECT_EQ(presentation.Slides().Count(), 4) << "the item gets a new slide";
  EXPECT_EQ(failures.take(), Texts{});
  host->application().ActiveWindow().Close();
  messages.toolkit().addAnswer("Yes");
  tools.disconnectAgendaSlides();
  EXPECT_EQ(failures.take(), Texts{"TrimlineTools, disconnectAgendaSlides: -2147188160"});
}

// Cancel is no way back.
TEST_F(AgendaTies, DeletingTheAgenda) {
  for (const char* answer : {"OK", "Cancel"}) {
    reload();
    if (presentation.Slides().Count() == 1) {
      wizard().OK();
      reload();
    }
    wizard().click(wizard().btnDeleteItem);
    messages.take();
    messages.toolkit().addAnswer(answer);
    wizard().click(wizard().btnDeleteAgenda);
    EXPECT_EQ(
        messages.take(),
        (Texts{"Vellumark for presentations [question] Are you sure you want to delete the agenda and "
               "remove all agenda slides from the presentation?",
               "Vellumark for presentations [information] The agenda has successfully been deleted and 1 "
               "agenda slides have been removed from the presentation."}));
    EXPECT_EQ(presentation.Slides().Count(), 2) << "that of the item deleted before stays";
    EXPECT_EQ(presentation.Tags().Count(), 0);
    EXPECT_FALSE(wizard().loaded());
    slide(2).Delete();
  }
  EXPECT_EQ(failures.take(), Texts{});
}

}  // namespace
}  // namespace vellumark::agenda
