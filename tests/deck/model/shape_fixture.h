#pragma once
// A deck made in the test and opened in an embedded host.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "deck/embedded_host.h"
#include "deck/model/objects.h"
#include "decks/deck_builder.h"
#include "support/saved_decks.h"
#include "support/temp_folder.h"

namespace vellumark::test {

class ShapeTest : public testing::Test {
 protected:
  /// Opens what `deck` has become, in a host of that version.
  void open(const std::string& version = "14.0") {
    const std::string path = folder.path("deck.pptx");
    deck.save(path);
    openFile(path, version);
  }
  /// Opens the file that the presentation saves now instead of the presentation.
  void reopen() {
    // A file that is open can't be written everywhere.
    const std::string path = folder.path("saved" + std::to_string(++reopened_) + ".pptx");
    presentation.SaveCopyAs(path);
    openFile(path, host->application().Version());
  }
  void openFile(const std::string& path, const std::string& version = "14.0") {
    host = std::make_unique<deck::EmbeddedHost>(version);
    presentation = host->open(path);
  }

  host::Shapes shapes(int slide = 1) { return presentation.Slides().Item(slide).Shapes(); }
  host::Shape shape(const std::string& name) { return shapes().Item(name); }
  host::ShapeRange range() { return shapes().Range(); }
  host::Selection selection() { return host->application().ActiveWindow().Selection(); }

  /// The XML of a slide as it is saved now.
  std::string slideXml(int slide = 1) {
    const std::string path = folder.path("look.pptx");
    presentation.SaveCopyAs(path);
    return test::readZipFile(path).at("ppt/slides/slide" + std::to_string(slide) + ".xml").bytes;
  }

  TempFolder folder;
  decks::DeckBuilder deck;
  std::unique_ptr<deck::EmbeddedHost> host;
  host::Presentation presentation;

 private:
  int reopened_ = 0;
};

/// The number of the failure that a statement raises, 0 where it raises none.
template <typename Statement>
int errorOf(Statement&& statement) {
  try {
    statement();
    return 0;
  } catch (const base::Error& error) {
    return error.number();
  }
}

inline int count(const std::string& text, const std::string& what) {
  int found = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++found;
  return found;
}

}  // namespace vellumark::test
