#pragma once
// A deck of every kind of part, in a folder of its own, and files made from it entry by entry.

#include <gtest/gtest.h>

#include <string>

#include "deck/package/package.h"
#include "decks/deck_builder.h"
#include "support/saved_decks.h"
#include "support/temp_folder.h"

namespace vellumark::deck {

class PackageTest : public ::testing::Test {
 protected:
  static decks::DeckBuilder smallDeck() {
    decks::DeckBuilder deck;
    auto slide = deck.slide("titleOnly");
    slide.placeholder("title").text("Title & <more>");
    slide.shape("rect", 10, 20, 100, 50).named("A").text("line one\nline \ttwo");
    slide.picture(100, 100, 40, 40);
    slide.notes("notes");
    slide.tag("KEY", "value");
    deck.slide("blank").picture(0, 0, 10, 10);
    return deck;
  }

  /// What opening, parsing every part and saving say of a file: nothing, or the one line of a FormatError.
  static std::string faultOf(const std::string& path, const std::string& saveTo = {},
                             const Limits& limits = {}) {
    try {
      const auto package = Package::open(path, limits);
      package->requiredRoot("officeDocument");
      for (const std::string& name : package->partNames()) {
        const PartRef part = package->part(name);
        if (!name.ends_with(".xml")) {
          part->bytes();
          continue;
        }
        part->root();
        part->relationships();
        part->touch();
      }
      if (!saveTo.empty()) package->save(saveTo, false);
      return {};
    } catch (const FormatError& error) {
      EXPECT_EQ(std::string(error.what()).find_first_of("\r\n\t"), std::string::npos);
      return error.what();
    }
  }

  std::string saved(const decks::DeckBuilder& deck) {
    deck.save(folder.path("deck.pptx"));
    return folder.path("deck.pptx");
  }
  std::string zip(const decks::ZipEntries& entries) {
    return folder.write("made" + std::to_string(++made_) + ".pptx", decks::writeZip(entries));
  }
  static decks::ZipEntries entries(const decks::DeckBuilder& deck) { return decks::readZip(deck.bytes()); }

  test::TempFolder folder;

 private:
  int made_ = 0;
};

}  // namespace vellumark::deck
