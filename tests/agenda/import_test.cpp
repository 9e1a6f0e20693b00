// Agendas of other presentations.

#include <gtest/gtest.h>

#include "agenda/agenda_stage.h"
#include "deck/model/file_dialogs.h"

namespace vellumark::agenda {
namespace {

using test::AgendaXml;
using test::Texts;

class AgendaImport : public test::AgendaStage {
 protected:
  AgendaImport() {
    open(1);
    edit({{.text = "old"}});
    host->state()->fileAnswerer = [this](const deck::FileQuestion& question) {
      title_ = question.title;
      filters_ = question.filters;
      return chosen_;
    };
  }

  /// A deck with that text as its agenda's document, none where it is empty.
  std::string deckWith(const std::string& xml) {
    decks::DeckBuilder other;
    other.slide();
    if (!xml.empty()) other.tag(tags::document, xml);
    const std::string path = folder.path("other.pptx");
    other.save(path);
    return path;
  }
  Texts importing(std::optional<std::string> path) {
    chosen_ = std::move(path);
    wizard().click(wizard().btnImport);
    return messages.take();
  }
  std::string information(const char* text) {
    return std::string("Vellumark for presentations [information] ") + text;
  }
  std::string critical(const std::string& text) { return "Vellumark for presentations [critical] " + text; }

  std::optional<std::string> chosen_;
  std::string title_;
  std::vector<std::pair<std::string, std::string>> filters_;
};

TEST_F(AgendaImport, ReplacesTheDocumentAsAWhole) {
  AgendaXml other;
  other.agenda["title"] = "Theirs";
  other.agenda["startTime"] = "600";
  other.format["baseFontSize"] = "33";
  other.items = {{.text = "x", .responsible = "Xin"}, {.level = 2, .text = "y"}};
  EXPECT_EQ(importing(deckWith(other.text())), Texts{});
  EXPECT_EQ(title_, "Import agenda from another presentation...");
  EXPECT_EQ(
      filters_,
      (std::vector<std::pair<std::string, std::string>>{{"PowerPoint presentations", "*.ppt; *.pptx"}}));
  EXPECT_EQ(host->application().Presentations().Count(), 1) << "the other one is closed again";
  EXPECT_EQ(items(), "1 x, Xin; 2 y; ");
  EXPECT_EQ(wizard().tbTitle.text(), "Theirs");
  EXPECT_EQ(wizard().tbStart.text(), "10:00");
  EXPECT_STREQ(wizard().agendaDoc.format().attribute("baseFontSize").value(), "33");
  EXPECT_EQ(wizard().agendaStyle, "Blue");
  EXPECT_EQ(presentation.Tags().Count(), 0) << "nothing reaches the presentation before OK";

  // The tree has the ids of before: a change finds no item until a click has built it anew.
  wizard().tbAgendaItem.text("changed");
  EXPECT_EQ(failures.take(), Texts{"AgendaWizard, saveCurrentItem: 91"});
  wizard().tvItems.select("s_id2");
  EXPECT_EQ(tree(), "1. x <\n  1.1 y\n");
  wizard().tbAgendaItem.text("changed");
  EXPECT_EQ(items(), "1 changed, Xin; 2 y; ");
  wizard().OK();
  EXPECT_EQ(presentation.Slides().Count(), 3) << "new slides for all items";
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(AgendaImport, LeavesTheFocusWhereItWas) {
  AgendaXml other;
  other.items = {{.text = "x", .duration = 45}, {.text = "y", .duration = 60}};
  chosen_ = deckWith(other.text());
  for (const char* steps : {"btnOK", "btnAddItem; btnCancel", "tvItems=1. x; tbAgendaItem=changed; btnCancel",
                            "tvItems=2. y; tvItems=2. y; tbAgendaItem=changed; tvItems=1. x; btnCancel"}) {
    AgendaWizard dialog;
    messages.toolkit().addDialog("AgendaWizard: btnImport; " + std::string(steps));
    dialog.showModal();
    EXPECT_EQ(failures.take(), Texts{}) << steps;
  }
}

TEST_F(AgendaImport, WhatCannotBeImported) {
  EXPECT_EQ(importing(std::nullopt), Texts{});
  EXPECT_EQ(importing(deckWith("")),
            Texts{information("The specified PowerPoint presentation does not contain "
                              "agenda information.")});
  const std::string missing = folder.path("missing.pptx");
  EXPECT_EQ(importing(missing), Texts{critical("Could not read file '" + missing + "'.")});
  EXPECT_EQ(items(), "1 old; ");
  EXPECT_EQ(failures.take(), Texts{});
  // A text that can't be read leaves an empty document behind the old controls.
  EXPECT_EQ(
      importing(deckWith("<Vellumark>")),
      Texts{critical("The agenda information in the specified PowerPoint presentation does not seem to be "
                     "valid.")});
  EXPECT_EQ(wizard().tbAgendaItem.text(), "old");
  EXPECT_TRUE(wizard().agendaDoc.empty());
  wizard().tbAgendaItem.text("changed");
  EXPECT_EQ(failures.take(), Texts{"AgendaWizard, saveCurrentItem: 91"});
  wizard().OK();
  EXPECT_EQ(failures.take(), Texts{"AgendaWizard, btnOK_Click: 91"});
  EXPECT_EQ(presentation.Slides().Count(), 1);
  EXPECT_EQ(presentation.Tags().Count(), 0);
}

}  // namespace
}  // namespace vellumark::agenda
