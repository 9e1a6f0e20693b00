// Every command that aligns, stretches or moves, as a user runs it: on the selection of a deck, looked at in
// the file that is saved.

#include <gtest/gtest.h>

#include "tools/stage.h"

namespace vellumark::tools {
namespace {

using test::Texts;

struct Frame {
  double left, top, width, height;
};

/// M is the master; A is upright, B the same frame turned by 90 degrees: its box is 325, 275, 50 x 100.
constexpr Frame master{200, 100, 120, 80}, upright{10, 20, 100, 50}, turned{300, 300, 100, 50};

class Align : public test::Stage {
 protected:
  Align() {
    auto slide = deck.slide();
    add(slide, "A", upright, 0);
    add(slide, "B", turned, 90);
    add(slide, "C", upright, 30);
    add(slide, "M", master, 0);
    add(slide, "N", turned, 90);
    open();
  }
  static void add(decks::SlideBuilder& slide, const char* name, Frame f, double rotation) {
    slide.shape("rect", f.left, f.top, f.width, f.height).rotate(rotation).named(name);
  }
  void expectFrame(const char* name, Frame frame) {
    SCOPED_TRACE(name);
    const host::Shape s = shape(name);
    EXPECT_NEAR(s.Left(), frame.left, 1e-3);
    EXPECT_NEAR(s.Top(), frame.top, 1e-3);
    EXPECT_NEAR(s.Width(), frame.width, 1e-3);
    EXPECT_NEAR(s.Height(), frame.height, 1e-3);
  }
};

TEST_F(Align, EveryCommandThroughTheFile) {
  struct Case {
    const char* command;
    Frame a, b;
  };
  const Case cases[] = {
      {"alignLefts", {200, 20, 100, 50}, {175, 300, 100, 50}},
      {"alignCenters", {210, 20, 100, 50}, {210, 300, 100, 50}},
      {"alignRights", {220, 20, 100, 50}, {245, 300, 100, 50}},
      {"alignTops", {10, 100, 100, 50}, {300, 125, 100, 50}},
      {"alignMiddles", {10, 115, 100, 50}, {300, 115, 100, 50}},
      {"alignBottoms", {10, 130, 100, 50}, {300, 105, 100, 50}},
      {"alignWidths", {10, 20, 120, 50}, {370, 300, 100, 120}},
      {"alignHeights", {10, 20, 100, 80}, {300, 330, 80, 50}},
      {"alignWidthsAndHeights", {10, 20, 120, 80}, {370, 330, 80, 120}},
      {"alignVerticallyInGoldenSection", {10, 105.557, 100, 50}, {300, 105.557, 100, 50}},
      {"stretchLeft", upright, {237.5, 300, 100, 175}},
      {"stretchRight", {10, 20, 310, 50}, turned},
      {"stretchTop", upright, {300, 212.5, 275, 50}},
      {"stretchBottom", {10, 20, 100, 160}, turned},
      {"moveLeftToMasterRight", {320, 20, 100, 50}, {295, 300, 100, 50}},
      {"moveRightToMasterLeft", {100, 20, 100, 50}, {125, 300, 100, 50}},
      {"moveTopToMasterBottom", {10, 180, 100, 50}, {300, 205, 100, 50}},
      {"moveBottomToMasterTop", {10, 50, 100, 50}, {300, 25, 100, 50}},
      {"stretchLeftToMasterRight", upright, {297.5, 300, 100, 55}},
      {"stretchRightToMasterLeft", {10, 20, 190, 50}, turned},
      {"stretchTopToMasterBottom", upright, {300, 252.5, 195, 50}},
      {"stretchBottomToMasterTop", {10, 20, 100, 80}, turned},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.command);
    open();
    select({"A", "B", "M"});
    tools.callMethod(c.command);
    reopen();
    expectFrame("A", c.a);
    expectFrame("B", c.b);
    expectFrame("M", master);
  }
  EXPECT_EQ(messages.take(), Texts{});
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Align, TheMasterIsTheShapeSelectedLast) {
  select({"M", "B", "A"});
  tools.alignLefts();
  expectFrame("M", {10, 100, 120, 80});
  expectFrame("A", upright);
  expectFrame("B", {-15, 300, 100, 50});
  const host::ShapeRange range = host->application().ActiveWindow().Selection().ShapeRange();
  EXPECT_EQ(range.Item(1).Name(), "M") << "the selection stays as it is";
  EXPECT_EQ(range.Count(), 3);
}

TEST_F(Align, ATurnedMasterCountsByItsBox) {
  select({"A", "N"});
  tools.alignWidthsAndHeights();
  tools.alignRights();
  tools.alignBottoms();
  expectFrame("A", {325, 275, 50, 100});
  select({"B", "N"});
  tools.alignWidthsAndHeights();
  EXPECT_NEAR(tools.getWidth(shape("B")), 50, 1e-3);
  EXPECT_NEAR(tools.getHeight(shape("B")), 100, 1e-3);
}

TEST_F(Align, GoldenSection) {
  decks::DeckBuilder figures;
  auto slide = figures.slide();
  add(slide, "M", {0, 100, 50, 200}, 0);
  add(slide, "S", {70, 0, 30, 40}, 0);
  deck = figures;
  open();
  select({"S", "M"});
  tools.alignVerticallyInGoldenSection();
  reopen();
  expectFrame("S", {70, 156.393, 30, 40});
}

// A size of nothing leaves the follower alone, and the sums have to come out as nothing.
TEST_F(Align, WhatHasNoRoomStays) {
  decks::DeckBuilder figures;
  auto slide = figures.slide();
  add(slide, "M", {10, 200, 20, 20}, 90);
  add(slide, "S", {10, 20, 20, 20}, 90);
  deck = figures;
  open();
  select({"S", "M"});
  tools.stretchRightToMasterLeft();
  reopen();
  expectFrame("S", {10, 20, 20, 20});
}

// The message comes for each turned follower, and the move that follows the resizing still happens.
TEST_F(Align, StretchingATurnedShapeMovesIt) {
  select({"C", "A", "N"});
  tools.stretchRight();
  EXPECT_EQ(
      messages.take(),
      Texts{"Vellumark for presentations [critical] Shape width can only be set if shape is rotated by a "
            "multiple of 90 degrees."});
  expectFrame("C", upright);
  expectFrame("A", {10, 20, 365, 50});

  select({"C", "M"});
  tools.stretchTopToMasterBottom();
  EXPECT_EQ(messages.take(), Texts{}) << "the new height is below zero";
  select({"C", "A"});
  tools.alignLefts();
  const double left = tools.getLeft(shape("C"));
  select({"C", "M"});
  tools.stretchRightToMasterLeft();
  EXPECT_EQ(messages.take().size(), 1U);
  EXPECT_NEAR(tools.getLeft(shape("C")), left, 1e-3);
  EXPECT_FLOAT_EQ(shape("C").Width(), 100);
}

TEST_F(Align, OneShapeAloneStays) {
  select({"B"});
  for (const char* command : {"alignLefts", "alignWidths", "stretchTop", "moveLeftToMasterRight",
                              "stretchLeftToMasterRight", "alignVerticallyInGoldenSection"}) {
    tools.callMethod(command);
  }
  expectFrame("B", turned);
  EXPECT_EQ(messages.take(), Texts{});
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Align, WithoutShapesTheProcedureReports) {
  const std::pair<const char*, const char*> locations[] = {
      {"alignLefts", "align"},
      {"alignHeights", "alignSizes"},
      {"alignVerticallyInGoldenSection", "align"},
      {"stretchLeft", "stretch"},
      {"moveTopToMasterBottom", "moveToMaster"},
      {"stretchTopToMasterBottom", "stretchToMaster"},
  };
  for (const auto& [command, procedure] : locations) {
    tools.callMethod(command);
    EXPECT_EQ(failures.take(), Texts{std::string("TrimlineTools, ") + procedure + ": -2147188160"});
  }
}

}  // namespace
}  // namespace vellumark::tools
