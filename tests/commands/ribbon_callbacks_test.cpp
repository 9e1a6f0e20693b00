// The ways from a ribbon's control to a command, and the states that the ribbon asks for.

#include "commands/ribbon_callbacks.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "commands/command_table.h"
#include "commands/commands_stage.h"

namespace vellumark::commands {
namespace {

using test::Texts;

class Ribbon : public test::CommandsStage {
 protected:
  Ribbon() {
    auto slide = deck.slide();
    slide.shape("rect", 10, 20, 100, 50).named("A").text("a");
    slide.shape("rect", 200, 100, 120, 80).named("M").text("m");
    slide.shape("homePlate", 200, 200, 120, 80).named("P");
    slide.shape("homePlate", 400, 200, 120, 80).named("P90").rotate(90);
    slide.shape("roundRect", 200, 300, 120, 80).named("R");
    slide.shape("roundRect", 400, 300, 120, 80).named("R2");
    slide.shape("upArrow", 600, 300, 120, 80).named("U");
    slide.picture(600, 20, 50, 50).named("Picture");
    deck.slide();
    open();
  }
};

TEST_F(Ribbon, CountersGoByNumber) {
  const std::pair<int, const char*> cases[] = {
      {1011, ""},
      {1018, "statsAgendaWizard 1; "},
      {1019, ""},
      {1020, "statsAgendaWizard 1; "},
      {1021, "statsAgendaWizard 1; "},
      {1026, ""},
      {1027, "statsMyElements 1; "},
      {1028, "statsMyElements 1; "},
      {1029, "statsMyElements 1; "},
      {1030, ""},
      {1031, "statsTrimlineTools 1; "},
      {1085, "statsTrimlineTools 1; "},
      {2000, "statsTrimlineTools 1; "},
      {2001, "statsSlideWizard 1; "},
      {32767, "statsSlideWizard 1; "},
  };
  for (const auto& [number, counted] : cases) {
    clearCounters();
    onAction(control(number));
    EXPECT_EQ(counters(), counted) << number;
  }
}

TEST_F(Ribbon, NumbersWithoutACommandDoNothing) {
  select({"A", "M"});
  for (const int number : {1, 1001, 1019, 1027, 1031, 1070, 1085, 1118, 2001}) onAction(control(number));
  EXPECT_EQ(messages.take(), Texts{});
  EXPECT_FLOAT_EQ(shape("A").Left(), 10);
  onAction(control(1053));
  EXPECT_FLOAT_EQ(shape("A").Left(), 320)
      << "the first entry of a split button's menu does what the button does";
}

// There is no trap: the host hears of it, and the command doesn't run.
TEST_F(Ribbon, FailuresReachTheHost) {
  select({"A", "M"});
  EXPECT_EQ(numberOf([] { onAction(control("zp_left")); }), 13);
  EXPECT_EQ(numberOf([] { onAction(control("zp_")); }), 13);
  EXPECT_EQ(numberOf([] { onAction(control("a")); }), 13);
  EXPECT_EQ(numberOf([] { onAction(control("zp_40000")); }), 6);
  EXPECT_EQ(numberOf([] { getEnabled(control("group")); }), 13);
  core::setRegistry("statsTrimlineTools", std::to_string(std::numeric_limits<std::int32_t>::max()), "");
  EXPECT_EQ(numberOf([] { onAction(control(1032)); }), 6);
  core::setRegistry("statsTrimlineTools", "many", "");
  EXPECT_EQ(numberOf([] { onAction(control(1032)); }), 13);
  EXPECT_FLOAT_EQ(shape("A").Left(), 10);
  EXPECT_EQ(failures.take(), Texts{});
}

// The macro's presentation is opened, used and gone before the command starts.
TEST_F(Ribbon, TheUndoFixRunsFirst) {
  decks::DeckBuilder macros;
  macros.slide();
  macros.save(folder.path("program/zorpUndoFix.ppt"));
  select({"A", "M"});
  std::string seen;
  host->state()->macros["zorpundofix.ppt!zorp.zorpundofix"] = [&] {
    seen = std::to_string(static_cast<int>(shape("A").Left())) + " " + counters();
  };
  onAction(control(1032));
  EXPECT_EQ(seen, "10 ") << "before counter and command";
  EXPECT_FLOAT_EQ(shape("A").Left(), 200);
  EXPECT_EQ(host->application().Presentations().Count(), 1);
  host->state()->macros.clear();
  onAction(control(1034));
  EXPECT_FLOAT_EQ(shape("A").Left(), 220) << "a failing macro stops nothing";
  EXPECT_EQ(host->application().Presentations().Count(), 1);
}

TEST_F(Ribbon, EveryRowHasItsWork) {
  for (const Command& command : commandTable()) {
    EXPECT_TRUE(command.routine || tools::TrimlineTools::hasMethod(command.method)) << command.method;
  }
}

TEST_F(Ribbon, NoticesAreKnownByTheirNumber) {
  copyright_onAction(control("zp_2500", "2"));
  EXPECT_EQ(messages.take().size(), 1U);
  EXPECT_EQ(numberOf([] { copyright_onAction(control("zp_2500", "second")); }), 13);
  host->application().ActiveWindow().Close();
  copyright_onAction(control("zp_2500", "second"));
  EXPECT_EQ(messages.take(), Texts{}) << "without a window nothing is looked at";
}

TEST_F(Ribbon, Toggles) {
  EXPECT_FALSE(getPressed(control(1085))) << "nothing selected";
  select({"A", "M"});
  for (const bool pressed : {true, false}) {
    onActionTB(control(1085), pressed);
    onActionTB(control(1086), pressed);
    onActionTB(control(1032), pressed);
    EXPECT_EQ(shape("A").TextFrame().AutoSize(), pressed ? 1 : 0);
    EXPECT_EQ(shape("M").TextFrame().WordWrap() != 0, pressed);
    EXPECT_EQ(getPressed(control(1085)), pressed);
    EXPECT_EQ(getPressed(control(1086)), pressed);
  }
  shape("A").TextFrame().AutoSize(host::ppAutoSizeShapeToFitText);
  shape("A").TextFrame().WordWrap(true);
  EXPECT_FALSE(getPressed(control(1085))) << "mixed is not fitted";
  EXPECT_TRUE(getPressed(control(1086))) << "mixed is not unwrapped";
  EXPECT_FALSE(getPressed(control("no number")));
  EXPECT_EQ(counters(), "");
  select({"Picture"});
  EXPECT_NE(numberOf([] { onActionTB(control(1085), true); }), 0);
}

TEST_F(Ribbon, EnabledByTheSelection) {
  // Every number with a rule; the numbers of a rule must agree, and all others are always enabled.
  struct RuleNumbers {
    const char* name;
    std::vector<int> numbers;
  };
  const RuleNumbers rules[] = {
      {"one", {1070, 1071, 1109, 1112, 1114}},
      {"two", {1032, 1033, 1034, 1036, 1037, 1038, 1040, 1041, 1042, 1044, 1046, 1047, 1048, 1049,
               1051, 1053, 1054, 1055, 1056, 1058, 1059, 1061, 1063, 1065, 1066, 1067, 1068}},
      {"exactly2", {1075, 1082, 1111}},
      {"pentagons2", {1073}},
      {"chain", {1074}},
      {"arrows", {1076}},
      {"rounded", {1077, 1078, 1081}},
      {"rounded2", {1080}},
      {"text", {1085, 1086, 1087, 1089, 1090, 1091}},
      {"some", {1093, 1094, 1095}},
      {"slides", {1098, 1100, 1101, 1117}},
      {"window", {1102, 1104, 1105, 1108, 1110, 1115}},
  };
  std::set<int> withRule;
  for (const RuleNumbers& rule : rules) withRule.insert(rule.numbers.begin(), rule.numbers.end());
  const auto enabled = [&] {
    std::string text;
    for (const RuleNumbers& rule : rules) {
      std::size_t on = 0;
      for (const int number : rule.numbers) on += getEnabled(control(number)) ? 1U : 0U;
      EXPECT_TRUE(on == 0 || on == rule.numbers.size()) << rule.name;
      if (on > 0) text += std::string(rule.name) + " ";
    }
    for (int number = 1000; number < 1130; ++number) {
      if (!withRule.contains(number)) {
        EXPECT_TRUE(getEnabled(control(number))) << number;
      }
    }
    return text;
  };
  struct Case {
    std::vector<std::string> shapes;
    const char* enabled;
  };
  // A selection of shapes has the slide in view as its slides.
  const Case cases[] = {
      {{}, "some slides window "},
      {{"A"}, "one text some slides window "},
      {{"Picture"}, "one some slides window "},
      {{"A", "M"}, "one two exactly2 text some slides window "},
      {{"A", "Picture"}, "one two exactly2 some slides window "},
      {{"P", "P90"}, "one two exactly2 pentagons2 text some slides window "},
      {{"P", "A"}, "one two exactly2 text some slides window "},
      {{"R"}, "one rounded text some slides window "},
      {{"R", "R2"}, "one two exactly2 rounded rounded2 text some slides window "},
      {{"U"}, "one arrows text some slides window "},
      {{"A", "M", "U"}, "one two text some slides window "},
  };
  for (const Case& c : cases) {
    select(c.shapes);
    EXPECT_EQ(enabled(), c.enabled) << testing::PrintToString(c.shapes);
  }
  shape("P90").Rotation(0);
  select({"P", "P90"});
  EXPECT_TRUE(getEnabled(control(1074)));
  shape("P90").Rotation(45);
  EXPECT_TRUE(getEnabled(control(1074))) << "the last look at the selection counts";
  host->application().ActiveWindow().Close();
  events->checkSelection();
  EXPECT_EQ(enabled(), "");
  for (const int number : {2001, 32767}) EXPECT_TRUE(getEnabled(control(number))) << number;
}

TEST_F(Ribbon, EachLanguageButtonSetsItsOwn) {
  core::setRegistry("languages", "1036;1031;1040", "");
  open();
  select({"A"});
  for (const auto& [number, language] : {std::pair(1093, 1036), {1094, 1031}, {1095, 1040}}) {
    onAction(control(number));
    EXPECT_EQ(shape("A").TextFrame().TextRange().LanguageID(), language) << number;
  }
  EXPECT_EQ(failures.take(), Texts{});
}

// The menu of notices counts no usage.
TEST_F(Ribbon, TheCopyrightMenuCountsNothing) {
  copyright_onAction(control("copyright_2", "2"));
  EXPECT_EQ(counters(), "");
}

TEST_F(Ribbon, LanguageButtonsAndStyles) {
  core::setRegistry("languages", "1031", "");
  open();
  EXPECT_EQ(getLabel(control(1093)), "German");
  EXPECT_EQ(getLabel(control(1094)), "");
  EXPECT_EQ(getLabel(control(1032)), "");
  EXPECT_TRUE(getVisible(control(1093)));
  EXPECT_FALSE(getVisible(control(1095)));
  EXPECT_TRUE(getVisible(control(1032)));
  for (const bool visible : {false, false, true}) {
    EXPECT_EQ(getVisible(control(1025)), visible);
    core::globals().styleNames.emplace_back("Blue");
  }
}

}  // namespace
}  // namespace vellumark::commands
