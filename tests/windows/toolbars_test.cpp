// The toolbars that the registered add-in builds over COM on hosts before the ribbon.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "decks/deck_builder.h"
#include "windows/installed_add_in.h"

namespace vellumark::test {

using namespace decks;
namespace {

TEST(ToolbarsOverCom, AreTheSameAsHere) {
  requireRegistered();
  TempFolder folder;
  const std::string deck = folder.path("deck.pptx");
  DeckBuilder builder;
  auto slide = builder.slide();
  slide.shape("homePlate", 10, 20, 100, 50).named("A");
  slide.shape("chevron", 200, 100, 120, 200).named("B");
  builder.save(deck);
  for (const std::string version : {"9.0", "11.0"}) {
    const std::vector<std::string> situation{"--select", "A,B",   "--style", "Vellumark Grey",
                                             "--host",   version, "--json",  "--root"};
    std::vector<std::string> here{"toolbars", deck};
    std::vector<std::string> there{TEST_WINDOWS_BUILD "/vellumark-host.exe", "toolbars", windowsPath(deck)};
    for (std::vector<std::string>* arguments : {&here, &there}) {
      arguments->insert(arguments->end(), situation.begin(), situation.end());
    }
    here.push_back(TEST_SOURCE_DIR "/product");
    there.push_back(windowsPath(TEST_SOURCE_DIR "/product"));
    const Outcome expected = runProgram(here), actual = runWine(there);
    ASSERT_EQ(expected.status, 0) << expected.err;
    ASSERT_EQ(actual.status, 0) << actual.err;
    EXPECT_EQ(nlohmann::json::parse(actual.out), nlohmann::json::parse(expected.out)) << version;
  }
}

}  // namespace
}  // namespace vellumark::test
