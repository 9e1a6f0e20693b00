// Tools that change forms, with their dialogs answered as a user answers them.

#include <gtest/gtest.h>

#include "tools/stage.h"

namespace vellumark::tools {
namespace {

using test::Texts;

const std::string product = "Vellumark for presentations ";

class Morph : public test::Stage {
 protected:
  /// What was told beside the dialogs themselves.
  Texts told() {
    Texts texts = messages.take();
    std::erase_if(texts, [](const std::string& text) { return text.find("[none]") != std::string::npos; });
    return texts;
  }
  float item(const std::string& name, int index) { return shape(name).Adjustments().Item(index); }
  int place(const std::string& name) { return shape(name).ZOrderPosition(); }
};

TEST_F(Morph, TwoShapesChangePlacesByAPointOfTheirBoxes) {
  struct Case {
    const char* anchor;
    std::pair<double, double> small, large;  ///< left and top of the boxes afterwards
  };
  // Small is 40 x 20 at 0, 0; Large is turned, its box 60 x 100 at 200, 100.
  const Case cases[] = {{"0", {200, 100}, {0, 0}},
                        {"4", {210, 140}, {-10, -40}},
                        {"8", {220, 180}, {-20, -80}},
                        {"2", {220, 100}, {-20, 0}}};
  auto slide = deck.slide();
  slide.shape("rect", 0, 0, 40, 20).named("Small");
  slide.shape("rect", 180, 120, 100, 60).rotate(90).named("Large");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.anchor);
    open();
    select({"Small", "Large"});
    messages.toolkit().addDialog(std::string("SwitchObjectsInput: obAnchor(") + c.anchor + ")=1; btnOK");
    tools.SwitchObjects();
    EXPECT_NEAR(tools.getLeft(shape("Small")), c.small.first, 1e-3);
    EXPECT_NEAR(tools.getTop(shape("Small")), c.small.second, 1e-3);
    EXPECT_NEAR(tools.getLeft(shape("Large")), c.large.first, 1e-3);
    EXPECT_NEAR(tools.getTop(shape("Large")), c.large.second, 1e-3);
    EXPECT_EQ(shape("Small").Width(), 40);
  }
  messages.toolkit().addDialog("SwitchObjectsInput: btnCancel");
  const double before = shape("Small").Left();
  tools.SwitchObjects();
  EXPECT_EQ(shape("Small").Left(), before);
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Morph, TheZOrderChangesPlacesOnlyWhereAsked) {
  auto slide = deck.slide();
  for (const char* name : {"A", "B", "C", "D"}) slide.shape("rect", 0, 0, 10, 10).named(name);
  const std::vector<std::vector<std::string>> selections{{"A", "D"}, {"D", "A"}, {"B", "C"}, {"C", "B"}};
  for (const auto& names : selections) {
    open();
    const int first = place(names[0]), second = place(names[1]);
    select(names);
    messages.toolkit().addDialog("SwitchObjectsInput: btnOK");
    tools.SwitchObjects();
    EXPECT_EQ(place(names[0]), first);
    messages.toolkit().addDialog("SwitchObjectsInput: cbZOrder=1; btnOK");
    tools.SwitchObjects();
    EXPECT_EQ(place(names[0]), second) << names[0] << names[1];
    EXPECT_EQ(place(names[1]), first);
  }
}

TEST_F(Morph, RoundedRectanglesShareARadius) {
  auto slide = deck.slide();
  slide.shape("roundRect", 0, 0, 200, 100).named("Wide");
  slide.shape("roundRect", 0, 200, 50, 150).named("Tall");
  slide.shape("roundRect", 300, 0, 100, 80).named("M");
  slide.shape("rect", 300, 200, 100, 80).named("Box");
  slide.shape("ellipse", 300, 200, 100, 80).named("Round");
  open();
  shape("M").Adjustments().Item(1, 0.25f);  // 20 points
  select({"Wide", "Tall", "M"});
  tools.roundedRectangles();
  EXPECT_NEAR(item("Wide", 1), 0.2, 1e-5);
  EXPECT_NEAR(item("Tall", 1), 0.4, 1e-5);
  EXPECT_EQ(told(), Texts{});

  messages.toolkit().addDialog("roundedRectanglesInput: tbRadius=5; btnOK");
  tools.roundedRectanglesNumeric();
  EXPECT_NEAR(item("Wide", 1), 5 * 2.835 / 100, 1e-5);
  EXPECT_NEAR(item("M", 1), 5 * 2.835 / 80, 1e-5);
  messages.toolkit().addDialog(
      "roundedRectanglesInput: btnOK");  // the first shape's own, to a tenth of a millimetre
  tools.roundedRectanglesNumeric();
  EXPECT_NEAR(item("Tall", 1), 5 * 2.835 / 50, 1e-5);
  messages.toolkit().addDialog("roundedRectanglesInput: udRadius!step=-1; btnOK");
  tools.roundedRectanglesNumeric();
  EXPECT_NEAR(item("Wide", 1), 5.1 * 2.835 / 100, 1e-5);
  messages.toolkit().addDialog("roundedRectanglesInput: tbRadius=0; btnOK");
  tools.roundedRectanglesNumeric();
  EXPECT_EQ(item("Wide", 1), 0);
  EXPECT_EQ(told(), Texts{});

  struct Wrong {
    std::vector<std::string> names;
    std::string several, one;
  };
  const Wrong wrong[] = {
      {{"Box", "Round"}, "Please select only rounded rectangles.", "Please select only rounded rectangles."},
      {{"Wide", "Box"}, "Please select only rounded rectangles.", "Please select only rounded rectangles."}};
  for (const Wrong& c : wrong) {
    select(c.names);
    tools.roundedRectangles();
    tools.roundedRectanglesNumeric();
    EXPECT_EQ(told(), (Texts{product + "[information] " + c.several, product + "[information] " + c.one}));
  }
  host->selectShapes({});
  tools.roundedRectangles();
  tools.roundedRectanglesNumeric();
  EXPECT_EQ(told(), (Texts{product + "[information] Please select at least two rounded rectangles.",
                           product + "[information] Please select at least one rounded rectangle."}));
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Morph, ARadiusThatIsNoneKeepsTheFocus) {
  auto slide = deck.slide();
  slide.shape("roundRect", 0, 0, 200, 100).named("Wide");
  open();
  select({"Wide"});
  const std::pair<const char*, const char*> cases[] = {{"x", "Please enter a numeric value."},
                                                       {"-1", "Please enter a value in mm."},
                                                       {"100.1", "Please enter a value in mm."}};
  for (const auto& [text, refusal] : cases) {
    const float before = item("Wide", 1);
    messages.toolkit().addDialog(std::string("roundedRectanglesInput: tbRadius=") + text + "; btnOK");
    tools.roundedRectanglesNumeric();
    const Texts all = told();
    ASSERT_FALSE(all.empty());
    EXPECT_EQ(all.front(), product + "[critical] " + refusal);
    EXPECT_EQ(item("Wide", 1), before);
    failures.take();  // the script ends where the dialog refused
  }
}

TEST_F(Morph, BlockArrowsGetTheirHeadAndShaft) {
  struct Case {
    const char* preset;
    double first, second;  ///< for 90 degrees and a shaft of 50 %, 200 x 100, on a host of version 11.0
  };
  const Case cases[] = {{"rightArrow", 0.75, 0.25}, {"leftArrow", 0.25, 0.25}, {"leftRightArrow", 0.25, 0.25},
                        {"upArrow", 1, 0.25},       {"downArrow", 0, 0.25},    {"upDownArrow", 0.25, 1}};
  auto slide = deck.slide();
  for (const Case& c : cases) slide.shape(c.preset, 0, 0, 200, 100).named(c.preset);
  slide.shape("rect", 0, 0, 10, 10).named("Box");
  std::vector<std::string> all{"Box"};
  for (const Case& c : cases) all.push_back(c.preset);

  open("14.0");
  select(all);
  messages.toolkit().addDialog("BlockArrows: obAngle(3)=1; tbAngle=90; tbRatio=40; btnOK");
  tools.beautifyBlockArrow();
  for (const Case& c : cases) {
    EXPECT_NEAR(item(c.preset, 1), 0.4, 1e-4) << c.preset;
    EXPECT_NEAR(item(c.preset, 2), 0.5, 1e-4) << c.preset;
  }
  EXPECT_EQ(failures.take(), Texts{});

  open("11.0");
  select(all);
  messages.toolkit().addDialog("BlockArrows: obAngle(0)=1; obAngle(1)=1; btnOK");
  tools.beautifyBlockArrow();
  for (const Case& c : cases) {
    EXPECT_NEAR(item(c.preset, 1), c.first, 1e-3) << c.preset;
    EXPECT_NEAR(item(c.preset, 2), c.second, 1e-3) << c.preset;
  }
  EXPECT_EQ(told(), Texts{});

  select({"Box"});
  tools.beautifyBlockArrow();
  EXPECT_EQ(
      told(),
      Texts{product + "[information] Please select at least one block arrow before invoking this function."});
}

TEST_F(Morph, RawHandlesOfAllShapesAtOnce) {
  auto slide = deck.slide();
  slide.shape("rightArrow", 0, 0, 200, 100).named("Arrow");   // two handles
  slide.shape("roundRect", 0, 0, 200, 100).named("Rounded");  // one
  slide.shape("rect", 0, 0, 10, 10).named("Box");
  open();
  select({"Arrow", "Rounded"});
  messages.toolkit().addDialog("AutoShapeAdjustments: tbAdj(0)='0,3'; btnOK");
  tools.tweakAutoShapeAdjustments();
  EXPECT_NEAR(item("Arrow", 1), 0.3, 1e-5);
  EXPECT_NEAR(item("Rounded", 1), 0.3, 1e-5);
  messages.toolkit().addDialog("AutoShapeAdjustments: tbAdj(0)=x; btnOK; tbAdj(0)=0.2; btnOK");
  tools.tweakAutoShapeAdjustments();
  EXPECT_EQ(told(), Texts{product + "[critical] Please enter a numeric value for adjustment 1."});
  EXPECT_NEAR(item("Arrow", 1), 0.2, 1e-5);
  select({"Arrow", "Box"});
  messages.toolkit().addDialog("AutoShapeAdjustments: btnCancel");
  bool seen = false;
  tools.tweakAutoShapeAdjustments();
  messages.toolkit().screen = [&](ui::Form& form) {
    seen = true;
    form.activated();
    EXPECT_EQ(dynamic_cast<ui::Label&>(*form.find("lAdj(0)")).caption(),
              "At least one shape in your selection does not support adjustments.");
    EXPECT_FALSE(form.find("btnOK")->enabled());
    EXPECT_FALSE(form.find("tbAdj(0)")->visible());
    form.unload();
    return true;
  };
  tools.tweakAutoShapeAdjustments();
  EXPECT_TRUE(seen);
}

}  // namespace
}  // namespace vellumark::tools
