// The dialog: what the tree shows, what controls check, and how both reach the document.

#include <gtest/gtest.h>

#include "agenda/agenda_stage.h"

namespace vellumark::agenda {
namespace {

using test::AgendaXml;
using test::Texts;

class AgendaEditor : public test::AgendaStage {
 protected:
  AgendaEditor() { open(); }

  /// Brings the focus there and types, as a user does.
  void type(ui::TextBox& box, const std::string& text) {
    EXPECT_TRUE(wizard().focus(box)) << box.name();
    box.text(text);
  }
  std::string critical(const char* text) {
    return std::string("Vellumark for presentations [critical] ") + text;
  }
};

TEST_F(AgendaEditor, TreeShowsNumbersPeopleAndTimes) {
  edit({{.text = "Welcome", .responsible = "Ann"},
        {.level = 2, .text = "Round", .duration = 0},
        {.level = 2, .text = "Goals", .responsible = "Ben", .duration = 15},
        {.text = "Coffee", .duration = 15, .isBreak = true},
        {.text = "Setup", .duration = 45, .shown = false, .ownSlide = false},
        {.text = "Plan", .duration = 900}});
  EXPECT_EQ(tree(), "1. Welcome <\n  1.1 Round\n  1.2 Goals\nCoffee\n[HIDDEN] Setup\n2. Plan\n");
  EXPECT_EQ(wizard().lEnd.caption(), "01:45") << "hidden items and breaks take their time";
  wizard().cbShowResponsible.value(true);
  wizard().cbShowTimeSlots.value(true);
  EXPECT_EQ(tree(),
            "1. Welcome (Ann, 09:00 - 09:30) <\n  1.1 Round\n  1.2 Goals (Ben, 09:30 - 09:45)\n"
            "Coffee (09:45 - 10:00)\n[HIDDEN] Setup (10:00 - 10:45)\n2. Plan (10:45 - 01:45)\n");
  wizard().cbShowItemNumbers.value(false);
  wizard().cbShowTimeSlots.value(false);
  EXPECT_EQ(tree(), "Welcome (Ann) <\n  Round\n  Goals (Ben)\nCoffee\nSetup\nPlan\n");

  blue.format["enumerate2ndLevel"] = "continuous";
  blue.format["enumerateBreak"] = "1";
  edit(blue.items);
  EXPECT_EQ(tree(), "1. Welcome <\n  2Round\n  3Goals\n4Coffee\n[HIDDEN] Setup\n5. Plan\n")
      << "only plain main numbers have a dot and a blank";
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaEditor, OddDocuments) {
  edit({{.level = 2, .text = "first"}, {.level = 3, .text = "third"}, {.text = "main"}});
  EXPECT_EQ(tree(), "0.1 first <\n1. main\n") << "a second level without a first is a root node";
  edit({{.text = "a", .duration = 32767}});
  EXPECT_EQ(failures.take(), Texts{"AgendaWizard, xml2treeview: 6"});
  edit({{.text = "a", .slideID = "same"}, {.text = "b", .slideID = "same"}});
  EXPECT_EQ(failures.take(), Texts{"AgendaWizard, xml2treeview: 457"});
  EXPECT_FALSE(wizard().fillingControls) << "the dialog goes on saving";
  blue.agenda["showTimeSlots"] = blue.agenda["showPageNumbers"] = "1";
  edit({{.text = "a"}});
  EXPECT_TRUE(wizard().cbShowTimeSlots.value() && wizard().cbShowPageNumbers.value());
}

TEST_F(AgendaEditor, ItemControlsFollowTheSelection) {
  edit({{.text = "Welcome", .responsible = "Ann", .duration = 20},
        {.text = "Coffee", .duration = 15, .isBreak = true, .shown = false, .ownSlide = false}});
  EXPECT_EQ(wizard().tbAgendaItem.text(), "Welcome");
  EXPECT_EQ(wizard().tbDuration.text(), "20");
  wizard().tvItems.select("s_id2");
  EXPECT_EQ(wizard().tbAgendaItem.text(), "Coffee");
  EXPECT_EQ(wizard().tbResponsible.text(), "");
  EXPECT_EQ(wizard().tbDuration.text(), "15");
  EXPECT_TRUE(wizard().cbBreak.value());
  EXPECT_FALSE(wizard().cbShowAgendaItem.value() || wizard().cbGenerateAgendaSlide.value());

  type(wizard().tbAgendaItem, "Tea");
  type(wizard().tbResponsible, "Cem");
  wizard().click(wizard().cbBreak);
  wizard().udDuration.step(-1);
  wizard().click(wizard().cbGenerateAgendaSlide);
  EXPECT_EQ(items(), "1 Welcome, Ann, 20; 1 Tea, Cem; ") << "a slide of its own shows the item";
  wizard().click(wizard().cbShowAgendaItem);
  EXPECT_EQ(items(), "1 Welcome, Ann, 20; 1 Tea, Cem, hidden, no slide; ");
  EXPECT_EQ(tree(), "1. Welcome\n[HIDDEN] Tea <\n");
}

TEST_F(AgendaEditor, OptionsReachTheDocument) {
  edit({{.text = "a"}});
  type(wizard().tbTitle, "Today");
  type(wizard().tbSubtitle, "");
  wizard().click(wizard().cbShowTimeSlots);
  wizard().click(wizard().cbShowPageNumbers);
  EXPECT_FALSE(wizard().cbShowTimeSlots.value());
  wizard().udStart.value(-600);
  wizard().click(wizard().cbShowResponsible);
  wizard().click(wizard().cbShowTimeSlots);
  EXPECT_FALSE(wizard().cbShowPageNumbers.value()) << "the two columns exclude each other";
  wizard().click(wizard().cbShowItemNumbers);
  const pugi::xml_node agenda = wizard().agendaDoc.agenda();
  EXPECT_STREQ(agenda.attribute("title").value(), "Today");
  EXPECT_STREQ(agenda.attribute("subtitle").value(), "");
  EXPECT_STREQ(agenda.attribute("startTime").value(), "600");
  EXPECT_STREQ(agenda.attribute("showItemNumbers").value(), "0");
  EXPECT_STREQ(agenda.attribute("showResponsible").value(), "1");
  EXPECT_STREQ(agenda.attribute("showTimeSlots").value(), "1");
  EXPECT_STREQ(agenda.attribute("showPageNumbers").value(), "0");

  blue.hasSubtitle = false;
  edit({{.text = "a"}});
  EXPECT_FALSE(wizard().tbSubtitle.enabled());
  EXPECT_EQ(wizard().tbSubtitle.text(), "<not supported by your corporate layout>");
  type(wizard().tbTitle, "New");
  EXPECT_STREQ(wizard().agendaDoc.agenda().attribute("subtitle").value(), "Of the day");
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaEditor, DurationsAreChecked) {
  edit({{.text = "a"}, {.text = "b"}});
  struct Case {
    const char* typed;
    const char* shown;
    const char* refusal;
  };
  const Case cases[] = {
      {"1440", "1440", nullptr},
      {"1441", "1441", "Please enter a value between 0 and 1440 minutes."},
      {"-1", "-1", "Please enter a value between 0 and 1440 minutes."},
      {"abc", "abc", "Please enter a numeric value."},
      {"", "", "Please enter a numeric value."},
      {"12.5", "12", nullptr},
      {"0", "0", nullptr},
  };
  for (const Case& c : cases) {
    type(wizard().tbDuration, c.typed);
    EXPECT_EQ(wizard().focus(wizard().tbTitle), c.refusal == nullptr) << c.typed;
    EXPECT_EQ(wizard().tbDuration.text(), c.shown) << c.typed;
    EXPECT_EQ(messages.take(), c.refusal ? Texts{critical(c.refusal)} : Texts{}) << c.typed;
    if (c.refusal) {
      wizard().tbDuration.text("30");
      wizard().focus(wizard().tbTitle);
    }
  }
  EXPECT_EQ(items(), "1 a, 0; 1 b; ");
}

TEST_F(AgendaEditor, StartTimesAreChecked) {
  edit({{.text = "a"}});
  struct Case {
    const char* typed;
    const char* shown;
    const char* refusal;
  };
  const Case cases[] = {
      {"23:59", "23:59", nullptr},
      {"7:05", "07:05", nullptr},
      {"1:30 PM", "13:30", nullptr},
      {"24:00", "24:00", "Please enter a valid time (hh:mm)."},
      {"noon", "noon", "Please enter a valid time (hh:mm)."},
      {"2026-01-31 9:00", "2026-01-31 9:00", "Please enter a valid time between 00:00 and 23:59."},
  };
  for (const Case& c : cases) {
    type(wizard().tbStart, c.typed);
    EXPECT_EQ(wizard().focus(wizard().tbTitle), c.refusal == nullptr) << c.typed;
    EXPECT_EQ(wizard().tbStart.text(), c.shown);
    EXPECT_EQ(messages.take(), c.refusal ? Texts{critical(c.refusal)} : Texts{}) << c.typed;
    wizard().tbStart.text("09:00");
    wizard().focus(wizard().tbTitle);
  }
  wizard().udStart.step(-1);
  EXPECT_EQ(wizard().tbStart.text(), "09:15") << "the upper arrow makes it later";
  EXPECT_EQ(wizard().lEnd.caption(), "09:45");
}

TEST_F(AgendaEditor, AddAndDelete) {
  edit({{.text = "a"}, {.level = 2, .text = "b"}, {.text = "c"}});
  wizard().click(wizard().btnAddItem);
  EXPECT_EQ(items(), "1 a; 1 <new item>; 2 b; 1 c; ") << "directly below, at the same level";
  EXPECT_EQ(wizard().tbAgendaItem.text(), "<new item>");
  wizard().tvItems.select("s_id2");
  wizard().click(wizard().btnAddItem);
  EXPECT_EQ(items(), "1 a; 1 <new item>; 2 b; 2 <new item>; 1 c; ");
  const std::string id = wizard().tvItems.selectedKey().substr(2);
  EXPECT_EQ(id.size(), 36U);

  wizard().click(wizard().btnDeleteItem);
  EXPECT_EQ(tree(), "1. a\n2. <new item>\n  2.1 b\n3. c <\n") << "the next item is selected";
  EXPECT_EQ(wizard().tbAgendaItem.text(), "c");
  wizard().click(wizard().btnDeleteItem);
  EXPECT_EQ(tree(), "1. a\n2. <new item>\n  2.1 b <\n") << "or else the one before";
  EXPECT_EQ(wizard().deletedItemIDs, id + ";id3;");
  for (int i = 0; i < 4; ++i) wizard().click(wizard().btnDeleteItem);
  EXPECT_EQ(tree(), "");
  EXPECT_FALSE(wizard().tbAgendaItem.enabled() || wizard().btnUp.enabled() || wizard().cbBreak.enabled());
  EXPECT_TRUE(wizard().btnDeleteItem.enabled());
  EXPECT_TRUE(wizard().cbShowAgendaItem.value() && wizard().cbGenerateAgendaSlide.value());
  wizard().click(wizard().btnAddItem);
  EXPECT_EQ(items(), "1 <new item>; ");
  EXPECT_TRUE(wizard().tbAgendaItem.enabled());
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaEditor, Moves) {
  struct Case {
    const char* selected;
    ui::CommandButton AgendaWizard::*button;
    const char* items;
  };
  const Case cases[] = {
      {"s_id1", &AgendaWizard::btnUp, "1 a; 2 b; 1 c; 1 d; "},
      {"s_id2", &AgendaWizard::btnUp, "1 b; 1 a; 1 c; 1 d; "},  // the second level can't come first
      {"s_id3", &AgendaWizard::btnUp, "1 a; 1 c; 2 b; 1 d; "},
      {"s_id1", &AgendaWizard::btnDown, "1 b; 1 a; 1 c; 1 d; "},
      {"s_id2", &AgendaWizard::btnDown, "1 a; 1 c; 2 b; 1 d; "},
      {"s_id4", &AgendaWizard::btnDown, "1 a; 2 b; 1 c; 1 d; "},
      {"s_id2", &AgendaWizard::btnLeft, "1 a; 1 b; 1 c; 1 d; "},
      {"s_id1", &AgendaWizard::btnLeft, "1 a; 2 b; 1 c; 1 d; "},
      {"s_id1", &AgendaWizard::btnRight, "1 a; 2 b; 1 c; 1 d; "},
      {"s_id2", &AgendaWizard::btnRight, "1 a; 2 b; 1 c; 1 d; "},
      {"s_id3", &AgendaWizard::btnRight, "1 a; 2 b; 2 c; 1 d; "},
  };
  for (const Case& c : cases) {
    edit({{.text = "a"}, {.level = 2, .text = "b"}, {.text = "c"}, {.text = "d"}});
    wizard().tvItems.select(c.selected);
    ui::CommandButton& button = wizard().*c.button;
    wizard().click(button);
    EXPECT_EQ(items(), c.items) << button.name() << " " << c.selected;
    EXPECT_EQ(wizard().tvItems.selectedKey(), c.selected) << "stays selected";
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaEditor, NodesStayOpenAndKeepTheirLabels) {
  edit({{.text = "a"}, {.level = 2, .text = "b"}});
  wizard().tvItems.setExpanded("s_id1", false);
  EXPECT_TRUE(wizard().tvItems.find("s_id1")->expanded);
  wizard().tvItems.userEditLabel("s_id1", "x");
  EXPECT_EQ(tree(), "1. a <\n  1.1 b\n");
}

TEST_F(AgendaEditor, StyleGivesTheLookAndKeepsTheContent) {
  edit({{.text = "a"}});
  type(wizard().tbTitle, "Mine");
  wizard().focus(wizard().cbStyle);
  wizard().cbStyle.listIndex(1);
  EXPECT_TRUE(wizard().focus(wizard().tbTitle));
  EXPECT_EQ(wizard().agendaStyle, "Grey");
  EXPECT_EQ(items(), "1 a; ");
  EXPECT_STREQ(wizard().agendaDoc.format().attribute("baseFontSize").value(), "18");
  EXPECT_STREQ(wizard().agendaDoc.agenda().attribute("title").value(), "Mine");

  const std::string before = wizard().agendaDoc.text();
  folder.write("styles/Blue/agendawizard.xml", "<Vellumark>");
  wizard().focus(wizard().cbStyle);
  wizard().cbStyle.listIndex(0);
  EXPECT_FALSE(wizard().focus(wizard().tbTitle));
  EXPECT_EQ(messages.take(),
            Texts{critical("The Agenda Wizard template seems to be corrupted. Please contact us at "
                           "support@vellumark.example.")});
  EXPECT_EQ(wizard().agendaDoc.text(), before);
  EXPECT_EQ(wizard().agendaStyle, "Grey");

  blue.hasSubtitle = false;
  writeTemplates();
  EXPECT_TRUE(wizard().focus(wizard().tbTitle));
  EXPECT_EQ(failures.take(), Texts{"AgendaWizard, cbStyle_Validate: 91"}) << "a style without a subtitle";
}

TEST_F(AgendaEditor, WhereItLoadsFrom) {
  blue.items = {{.text = "of the template"}};
  writeTemplates();
  EXPECT_EQ(reload().agendaStyle, "Blue");
  EXPECT_EQ(items(), "1 of the template; ");

  AgendaXml stored;
  stored.items = {{.text = "stored"}};
  presentation.Tags().Add(tags::document, stored.text());
  presentation.Tags().Add(tags::style, "Grey");
  EXPECT_EQ(reload().agendaStyle, "Grey");
  EXPECT_EQ(items(), "1 stored; ");
  presentation.Tags().Add(tags::style, "no longer installed");
  EXPECT_EQ(reload().agendaStyle, "Blue");
  EXPECT_EQ(items(), "1 stored; ");
  EXPECT_EQ(messages.take(), Texts{});

  // What can't be read is told, and the dialog closes itself.
  const std::string message = " seems to be corrupted. Please contact us at support@vellumark.example.";
  std::string deep = "<Vellumark><agenda>";
  for (int i = 0; i < 100; ++i) deep += "<a>";
  for (int i = 0; i < 100; ++i) deep += "</a>";
  for (const std::string& text :
       {std::string("<Vellumark>"), std::string("nothing"), deep + "</agenda></Vellumark>"}) {
    presentation.Tags().Add(tags::document, text);
    EXPECT_TRUE(reload().abortDialog);
    EXPECT_EQ(messages.take(), Texts{critical(("The Agenda Wizard data" + message).c_str())});
    wizard().activated();
    EXPECT_FALSE(wizard().loaded());
    EXPECT_EQ(presentation.Tags().Item(tags::document), text);
  }
  presentation.Tags().Delete(tags::document);
  core::globals().styleNames = {"not there"};
  reload();
  EXPECT_EQ(messages.take(), Texts{critical(("The Agenda Wizard template" + message).c_str())});
  blue.agenda.erase("title");
  blue.items = {};
  core::globals().styleNames = {"Blue", "Grey"};
  presentation.Tags().Add(tags::document, blue.text());
  EXPECT_TRUE(reload().abortDialog);
  EXPECT_EQ(failures.take(), Texts{"AgendaWizard, loadAgendaDocument: 91"});
  messages.take();

  closeWizard();
  presentation.Close();
  reload();
  EXPECT_EQ(messages.take(),
            Texts{"Vellumark for presentations [information] Please open a presentation first."});
  EXPECT_TRUE(wizard().abortDialog);
}

}  // namespace
}  // namespace vellumark::agenda
