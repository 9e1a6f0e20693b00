#pragma once
// A deck made in the test, open in an embedded host, with the tools at work on it. Settings go into a store
// of the test's own; failures and boxes are collected.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/globals.h"
#include "deck/embedded_host.h"
#include "decks/deck_builder.h"
#include "platform/environment_guard.h"
#include "support/failures.h"
#include "support/messages.h"
#include "support/temp_folder.h"
#include "tools/trimline_tools.h"

namespace vellumark::test {

using Texts = std::vector<std::string>;

class Stage : public testing::Test {
 protected:
  ~Stage() override { core::globals() = core::Globals{}; }

  /// Opens what `deck` has become.
  void open(const std::string& version = "14.0") {
    deck.save(folder.path("deck.pptx"));
    openFile(folder.path("deck.pptx"), version);
  }
  /// Opens the file that the presentation saves now instead of the presentation.
  void reopen() {
    presentation.SaveCopyAs(folder.path("saved.pptx"));
    openFile(folder.path("saved.pptx"), host->application().Version());
  }

  host::Shape shape(const std::string& name) { return presentation.Slides().Item(1).Shapes().Item(name); }
  void select(const std::vector<std::string>& names) {
    std::vector<host::Shape> shapes;
    for (const std::string& name : names) shapes.push_back(shape(name));
    host->selectShapes(shapes);
  }

  TempFolder folder;
  EnvironmentGuard store{"VELLUMARK_SETTINGS", folder.path("settings.db")};
  decks::DeckBuilder deck;
  std::unique_ptr<deck::EmbeddedHost> host;
  host::Presentation presentation;
  tools::TrimlineTools tools;
  Messages messages;
  Failures failures;

 private:
  void openFile(const std::string& path, const std::string& version) {
    presentation = {};
    host = std::make_unique<vellumark::deck::EmbeddedHost>(version);
    presentation = host->open(path);
    core::globals().powerPointApp = host->application();
    core::globals().tools = &tools;
  }
};

}  // namespace vellumark::test
