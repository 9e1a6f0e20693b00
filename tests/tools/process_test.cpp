// Stacks, process arrows and their headers, by the worked figures and through the file.

#include <gtest/gtest.h>

#include "commands/ppt_events.h"
#include "tools/stage.h"

namespace vellumark::tools {
namespace {

using test::Texts;

const std::string product = "Vellumark for presentations ";

class Process : public test::Stage {
 protected:
  Process() { core::globals().applicationEvents = &events; }
  ~Process() override { core::globals().applicationEvents = nullptr; }

  /// Opens the deck again, with the watch that alignAngles asks.
  void start(const std::string& version = "14.0") {
    open(version);
    core::globals().applicationEvents = &events;
  }
  float tip(const std::string& name) { return shape(name).Adjustments().Item(1); }
  void expectFrame(const std::string& name, double left, double top, double width, double height) {
    const host::Shape s = shape(name);
    EXPECT_NEAR(s.Left(), left, 1e-3) << name;
    EXPECT_NEAR(s.Top(), top, 1e-3) << name;
    EXPECT_NEAR(s.Width(), width, 1e-3) << name;
    EXPECT_NEAR(s.Height(), height, 1e-3) << name;
  }

  commands::pptEvents events;
};

TEST_F(Process, StacksGrowFromTheMasterBackwardsThroughTheSelection) {
  auto slide = deck.slide();
  slide.shape("rect", 10, 10, 30, 20).named("A");
  slide.shape("rect", 100, 60, 40, 50).rotate(90).named("B");  // its box is 50 x 40
  slide.shape("rect", 300, 200, 60, 30).named("C");
  start();
  const double masterLeft = 300, masterTop = 200;
  select({"A", "B", "C"});
  tools.stackHorizontally();
  EXPECT_NEAR(tools.getLeft(shape("B")), masterLeft - 50, 1e-3) << "leftward, because C lies right of A";
  EXPECT_NEAR(tools.getLeft(shape("A")), masterLeft - 50 - 30, 1e-3);
  EXPECT_EQ(shape("A").Top(), 10) << "the other direction is left alone";
  select({"C", "B", "A"});
  tools.stackVertically();  // A is the master and lies above C
  EXPECT_NEAR(tools.getTop(shape("B")), 10 + 20, 1e-3);
  EXPECT_NEAR(tools.getTop(shape("C")), 10 + 20 + 40, 1e-3);
  shape("A").Left(300);  // with its visual left at the master's the stack runs rightward
  select({"A", "C"});
  tools.stackHorizontally();
  EXPECT_NEAR(tools.getLeft(shape("A")), masterLeft + 60, 1e-3);
  select({"A", "B", "C"});
  shape("C").Top(static_cast<float>(masterTop));
  tools.stackVertically();
  EXPECT_NEAR(tools.getTop(shape("B")), masterTop - 40, 1e-3);
}

TEST_F(Process, TipsOfOneAngle) {
  auto slide = deck.slide();
  slide.shape("homePlate", 0, 0, 200, 100).named("Large");
  slide.shape("chevron", 0, 200, 200, 50).named("Flat");
  slide.shape("homePlate", 0, 300, 100, 50).named("M");
  slide.shape("rect", 400, 0, 50, 50).named("Box");

  start("11.0");
  shape("M").Adjustments().Item(1, 0.75f);  // a tip of 25 points, 45 degrees
  select({"Large", "Flat", "M"});
  tools.alignAngles();
  EXPECT_NEAR(tip("Large"), 0.75, 1e-4);
  EXPECT_NEAR(tip("Flat"), 0.875, 1e-4);
  expectFrame("Flat", 0, 200, 200, 50);

  start("14.0");
  shape("M").Adjustments().Item(1, 0.3f);
  select({"Large", "Flat", "M"});
  tools.alignAngles();
  EXPECT_EQ(tip("Large"), 0.3f);
  EXPECT_EQ(tip("Flat"), 0.3f);

  start("15.0");
  shape("M").Adjustments().Item(1, 0.4f);
  const float before = tip("Flat");
  select({"Large", "Flat", "M"});
  tools.alignAngles();
  EXPECT_EQ(tip("Flat"), before) << "hosts of other versions keep their handles";

  for (const std::vector<std::string>& wrong : {std::vector<std::string>{"M"}, {"Box", "M"}}) {
    select(wrong);
    tools.alignAngles();
    EXPECT_EQ(messages.take(),
              Texts{product + "[information] Please select two or more process arrows first."});
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Process, ChainsCloseAlongTheirFlow) {
  struct Case {
    int rotation;
    const char* version;
    double tip;  ///< of the master: 100 x 40 with handle 0.5 on new hosts, 0.8 on old ones
  };
  for (const Case& c :
       {Case{0, "14.0", 20}, Case{0, "11.0", 20}, Case{0, "15.0", 0}, Case{180, "14.0", 20}}) {
    SCOPED_TRACE(std::string(c.version) + ", " + std::to_string(c.rotation));
    deck = decks::DeckBuilder();
    auto slide = deck.slide();
    // Selected out of order and at different heights; the last one selected is the master.
    slide.shape("chevron", 220, 90, 90, 30).rotate(c.rotation).named("B");
    slide.shape("homePlate", 100, 110, 80, 60).rotate(c.rotation).named("A");
    slide.shape("chevron", 350, 100, 100, 40).rotate(c.rotation).named("C");
    start(c.version);
    shape("C").Adjustments().Item(1, c.version[0] == '1' && c.version[1] == '1' ? 0.8f : 0.5f);
    select({"B", "A", "C"});
    tools.processChain();
    if (c.rotation == 0) {
      expectFrame("A", 100, 100, 220 - 100 + c.tip, 40);
      expectFrame("B", 220, 100, 350 - 220 + c.tip, 40);
      expectFrame("C", 350, 100, 100, 40);
    } else {  // to the left: C comes first, and A, the last, keeps its width
      EXPECT_NEAR(shape("C").Width(), 350 + 100 - 220 - 90 + c.tip, 1e-3);
      EXPECT_NEAR(shape("A").Width(), 80, 1e-3);
      EXPECT_NEAR(shape("A").Top(), 100, 1e-3);
    }
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Process, UprightChainsAreMeasuredByWhatTheEyeSees) {
  auto slide = deck.slide();
  slide.shape("chevron", 100, 100, 80, 40).rotate(90).named("A");  // the box is 40 x 80 at 120, 80
  slide.shape("chevron", 130, 250, 60, 50).rotate(90).named("M");  // 50 x 60 at 135, 245
  start();
  shape("M").Adjustments().Item(1, 0.5f);
  select({"A", "M"});
  tools.processChain();
  // With the master's height the arrow's box is 50 x 80 at 115, 85; the next begins at 245, and the tip is 25
  // long.
  EXPECT_NEAR(shape("A").Width(), 245 - 85 + 25, 1e-3);
  EXPECT_EQ(shape("A").Height(), 50);
  EXPECT_NEAR(tools.getLeft(shape("A")), tools.getLeft(shape("M")), 1e-3);
}

TEST_F(Process, HeadersFollowTheSlantOfTheirPentagon) {
  struct Case {
    const char* version;
    int rotation;
    std::vector<std::pair<double, double>> corners;  ///< on the slide
  };
  // The pentagon is 200 x 100 at 100, 100 with a tip of 50; the header's bottom lies at 125, a quarter down,
  // where the slanted edge has 25 points left to the tip.
  const Case cases[] = {
      {"14.0", 0, {{100, 100}, {250, 100}, {275, 125}, {100, 125}}},
      {"11.0", 0, {{100, 100}, {250, 100}, {275, 125}, {100, 125}}},
      {"14.0", 180, {{150, 100}, {300, 100}, {300, 125}, {125, 125}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.version) + ", " + std::to_string(c.rotation));
    deck = decks::DeckBuilder();
    auto slide = deck.slide();
    slide.shape("homePlate", 100, 100, 200, 100).rotate(c.rotation).named("P");
    slide.freeform(90, 95, 120, 30, {{0, 0}, {120, 0}, {120, 30}, {0, 30}}).named("H");
    start(c.version);
    EXPECT_EQ(shape("H").Nodes().Count(), c.version[1] == '1' ? 4 : 5);
    shape("P").Adjustments().Item(1, c.version[1] == '1' ? 0.75f : 0.5f);
    select({"H", "P"});
    tools.adjustPentagonHeader();
    EXPECT_EQ(messages.take(), Texts{});
    double right = 0, left = 1000;
    for (const auto& [x, y] : c.corners) {
      right = std::max(right, x);
      left = std::min(left, x);
    }
    expectFrame("H", left, 100, right - left, 25);
    reopen();
    expectFrame("H", left, 100, right - left, 25);
  }
}

TEST_F(Process, WrongHeadersBringTheirMessages) {
  auto slide = deck.slide();
  slide.shape("homePlate", 100, 100, 200, 100).rotate(90).named("Askew");
  slide.shape("rect", 100, 100, 200, 100).named("Box");
  slide.freeform(90, 95, 120, 30, {{0, 0}, {120, 0}, {120, 30}, {0, 30}}).named("H");
  slide.freeform(90, 95, 120, 30, {{0, 0}, {120, 0}, {120, 30}}).named("Triangle");
  start();
  const std::string nothing = product +
                              "[information] Nothing appropriate is currently selected.\r\nPlease select the "
                              "pentagon (block arrow) and the corresponding "
                              "header box.";
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"Box", "H"}, nothing},
      {{"Askew", "Triangle"}, nothing},
      {{"H", "Askew"}, product + "[exclamation] The pentagon needs to be in an upright position."}};
  for (const auto& [names, text] : cases) {
    select(names);
    tools.adjustPentagonHeader();
    EXPECT_EQ(messages.take(), Texts{text});
  }
  expectFrame("H", 90, 95, 120, 30);
  EXPECT_EQ(failures.take(), Texts{});
}

}  // namespace
}  // namespace vellumark::tools
