// Nobody's work is lost: what programs that run at the same time, questions that nobody answers and refusals
// leave alone.

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "app/program.h"
#include "decks/deck_builder.h"
#include "support/saved_decks.h"

namespace vellumark::test {

using namespace decks;
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

class Safety : public testing::Test {
 protected:
  Safety() {
    DeckBuilder builder;
    for (const char* name : {"One", "Two"}) {
      auto slide = builder.slide();
      slide.shape("rect", 10, 20, 100, 50).named("A");
      slide.shape("rect", 200, 100, 120, 200).named(name);
    }
    builder.save(deck_);
  }

  /// Runs shell commands at the same time, in which $V is the program; the exit status of each, sorted.
  std::string together(const std::vector<std::string>& commands) {
    std::string script =
        "cd '" + folder_.root().string() + "'; V='" TEST_PROGRAM "'; R='--root " + root_.string() + "'; ";
    for (const std::string& command : commands) script += "( " + command + "; echo $? ) & ";
    const Outcome outcome = runProgram("/bin/sh", {"-c", script + "wait"});
    std::string statuses = outcome.out;
    std::erase(statuses, '\n');
    std::ranges::sort(statuses);
    return statuses;
  }
  Json slides(const std::string& path) {
    return Json::parse(runProgram({"show", folder_.path(path), "--json"}).out)["slides"];
  }

  TempFolder folder_;
  fs::path root_ = TEST_SOURCE_DIR "/product";
  std::string deck_ = folder_.path("deck.pptx");
  std::string out_ = folder_.path("out.pptx");
};

TEST_F(Safety, AdditionsAtTheSameTimeAllCome) {
  root_ = folder_.root() / "root";
  test::copyInstallation(root_);
  std::vector<std::string> commands;
  for (int i = 0; i < 5; ++i) {
    commands.push_back("$V run addMyElements deck.pptx $R --select A --dialog 'myElementsAdd: elemName=E" +
                       std::to_string(i) + "; btnAddElement' >/dev/null 2>&1");
  }
  EXPECT_EQ(together(commands), "00000");
  const std::string index = readFile(root_ / "user/myelements/myelements.xml");
  for (int i = 0; i < 5; ++i) {
    EXPECT_NE(index.find("name=\"E" + std::to_string(i) + "\""), std::string::npos) << index;
  }
  EXPECT_EQ(slides("root/user/myelements/myelements.pptx").size(), 5U);
}

TEST_F(Safety, ExtractsAtTheSameTimeAreEachOnesOwn) {
  std::vector<std::string> commands;
  for (int i = 0; i < 6; ++i) {
    const std::string number = std::to_string(i);
    DeckBuilder builder;
    builder.slide();
    builder.slide().shape("rect", 0, 0, 50, 50).named("of " + number);
    builder.save(folder_.path("d" + number + ".pptx"));
    commands.push_back("VELLUMARK_NOW='2026-01-31 09:05:07' $V run saveSelectedSlides d" + number +
                       ".pptx $R --slides 2 --answer x" + number + ".pptx >/dev/null 2>&1");
  }
  EXPECT_EQ(together(commands), "000000");
  for (int i = 0; i < 6; ++i) {
    const Json saved = slides("x" + std::to_string(i) + ".pptx");
    ASSERT_EQ(saved.size(), 1U);
    EXPECT_EQ(saved[0]["shapes"][0]["name"], "of " + std::to_string(i));
  }
}

TEST_F(Safety, ADeckIsNoTargetForItsOwnSlides) {
  const std::string before = readFile(deck_);
  fs::create_symlink(deck_, folder_.path("link.pptx"));
  for (const std::string name : {"deck.pptx", "./DECK.pptx", "link.pptx"}) {
    const Outcome refused =
        runCommand("saveSelectedSlides", deck_, {"--slides", "1", "--answer", folder_.path(name)});
    EXPECT_EQ(refused.status, 1) << name << refused.err;
    EXPECT_NE(refused.err.find("because that presentation is open"), std::string::npos) << refused.err;
    EXPECT_EQ(readFile(deck_), before) << name;
  }
}

TEST_F(Safety, QuestionsThatNobodyAnswersChangeNothing) {
  const std::string list = folder_.write("a.txt", "A\nB\n"), root = root_.string();
  ASSERT_EQ(runProgram({"agenda", deck_, "--items", list, "--pages", "--in-place", "--root", root}).status,
            0);
  ASSERT_EQ(slides("deck.pptx").size(), 4U);
  // Without their bond, and with the slides in another order, the agenda would make its slides anew.
  ASSERT_EQ(
      runCommand("disconnectAgendaSlides", deck_, {"--slides", "3", "--answer", "Yes", "--in-place"}).status,
      0);
  ASSERT_EQ(runCommand("pasteOnSelectedSlides", deck_, {"--copy", "A", "--slides", "2", "--in-place"}).status,
            0);
  const Outcome unasked = runCommand("alignLefts", deck_, {"--select", "A,One", "-o", out_});
  EXPECT_EQ(unasked.status, 0) << unasked.err;
  EXPECT_EQ(slides("out.pptx").size(), 4U);

  ASSERT_EQ(runCommand("hideShapes", deck_, {"--select", "A", "-o", out_}).status, 0);
  const Outcome hidden = runCommand("alignTops", out_, {"--select", "A,One", "--in-place"});
  EXPECT_EQ(hidden.status, 0) << hidden.err;
  EXPECT_NE(hidden.err.find("answered: Yes, because nothing else was said"), std::string::npos) << hidden.err;
  const std::string before = readFile(out_);
  const Outcome no =
      runCommand("alignTops", out_, {"--select", "A,One", "--in-place", "--answer", "OK", "--answer", "No"});
  EXPECT_EQ(no.status, 1) << no.err;
  EXPECT_EQ(readFile(out_), before);
  const Outcome extract = runCommand("saveSelectedSlides", out_,
                                     {"--slides", "1", "--answer", "No", "--answer", folder_.path("x.pptx")});
  EXPECT_EQ(extract.status, 1) << extract.err;
  EXPECT_FALSE(fs::exists(folder_.path("x.pptx"))) << "all slides would be in it";
}

TEST_F(Safety, RefusalsWriteNothing) {
  DeckBuilder empty;
  empty.save(folder_.path("empty.pptx"));
  const struct {
    std::string command, deck;
    std::vector<std::string> arguments;
    std::string told;
  } cases[] = {
      {"unhideShapes", "empty.pptx", {}, "Nothing appropriate is currently selected."},
      {"insertCopyright 1", "deck.pptx", {"--view", "slidemaster"}, ""},
      {"insertCopyright 1", "deck.pptx", {"--view", "sorter"}, "Please go to normal view."},
      {"adjustPentagonHeader", "deck.pptx", {"--select", "A,One"}, "Nothing appropriate"},
      {"insertCopyright 1", "empty.pptx", {}, "does not contain any slides"},
  };
  for (const auto& c : cases) {
    std::vector<std::string> arguments = c.arguments;
    arguments.insert(arguments.end(), {"-o", out_});
    const Outcome outcome = runCommand(c.command, folder_.path(c.deck), arguments);
    const bool refused = !c.told.empty();
    EXPECT_EQ(outcome.status, refused ? 1 : 0) << c.command << outcome.err;
    EXPECT_NE(outcome.err.find(c.told), std::string::npos) << outcome.err;
    EXPECT_EQ(failureLines(outcome.err).size(), refused ? 1U : 0U) << outcome.err;
    EXPECT_EQ(fs::exists(out_), !refused) << c.command;
    fs::remove(out_);
  }
}

}  // namespace
}  // namespace vellumark::test
