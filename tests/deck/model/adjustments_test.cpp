#include <array>

#include "deck/model/shape_fixture.h"

namespace vellumark::test {

using namespace decks;
namespace {

using base::errors::outOfRange;

TEST_F(ShapeTest, AdjustmentsHaveTheDefaultsOfTheirPreset) {
  struct Case {
    const char* preset;
    int count;
    float first;
  };
  const Case cases[] = {{"rect", 0, 0},          {"roundRect", 1, 0.16667f},
                        {"rightArrow", 2, 0.5f}, {"arc", 2, 270},
                        {"star5", 1, 0.19098f},  {"bentConnector3", 1, 0.5f},
                        {"decagon", 0, 0},       {"mathNotEqual", 3, 0.2352f},
                        {"noSuchPreset", 0, 0},  {"borderCallout3", 8, 0.1875f}};
  auto slide = deck.slide();
  for (const Case& one : cases) slide.shape(one.preset, 0, 0, 50, 20).named(one.preset);
  open();
  for (const Case& one : cases) {
    const host::Adjustments adjustments = shape(one.preset).Adjustments();
    EXPECT_EQ(adjustments.Count(), one.count) << one.preset;
    if (one.count > 0) {
      EXPECT_FLOAT_EQ(adjustments.Item(1), one.first) << one.preset;
    }
    EXPECT_EQ(errorOf([&] { adjustments.Item(one.count + 1); }), outOfRange);
    EXPECT_EQ(errorOf([&] { adjustments.Item(0); }), outOfRange);
  }
}

TEST_F(ShapeTest, WritingOneAdjustmentWritesAllGuidesOfThePreset) {
  auto slide = deck.slide();
  slide.shape("star5", 0, 0, 50, 20).named("Star");
  slide.shape("arc", 0, 0, 50, 20).adjust({100000, 200000}).named("Arc");
  open();
  presentation.Saved(true);
  shape("Arc").Adjustments().Item(1, shape("Arc").Adjustments().Item(1));
  EXPECT_EQ(presentation.Saved(), -1);
  shape("Star").Adjustments().Item(1, 0.3f);
  shape("Arc").Adjustments().Item(2, -90);
  const std::string xml = slideXml();
  EXPECT_NE(xml.find(R"(<a:avLst><a:gd name="adj" fmla="val 30000"/><a:gd name="hf" fmla="val 105146"/>)"
                     R"(<a:gd name="vf" fmla="val 110557"/></a:avLst>)"),
            std::string::npos);
  EXPECT_NE(xml.find(R"(<a:gd name="adj1" fmla="val 100000"/><a:gd name="adj2" fmla="val -5400000"/>)"),
            std::string::npos);
}

/// A shape of 200 by 100 points, its guides, and what hosts before the ribbon make of them.
TEST_F(ShapeTest, OldHostsMeasureArrowsTheirOwnWay) {
  struct Case {
    const char* preset;
    std::vector<int> guides;  // as in the file
    std::array<float, 2> items;
  };
  const Case cases[] = {
      {"homePlate", {40000}, {0.8f, 0}},
      {"chevron", {100000}, {0.5f, 0}},
      {"rightArrow", {60000, 50000}, {0.75f, 0.2f}},
      {"notchedRightArrow", {60000, 50000}, {0.75f, 0.2f}},
      {"stripedRightArrow", {60000, 50000}, {0.75f, 0.2f}},
      {"leftArrow", {60000, 50000}, {0.25f, 0.2f}},
      {"leftRightArrow", {60000, 50000}, {0.25f, 0.2f}},
      {"upArrow", {60000, 50000}, {0.5f, 0.2f}},
      {"downArrow", {60000, 40000}, {0.6f, 0.2f}},
      {"upDownArrow", {60000, 40000}, {0.2f, 0.4f}},
      {"roundRect", {25000}, {0.25f, 0}},
  };
  auto slide = deck.slide();
  for (const Case& one : cases) {
    slide.shape(one.preset, 0, 0, 200, 100).adjust(one.guides).named(one.preset);
    slide.shape(one.preset, 0, 0, 200, 100).named(one.preset + std::string(" written"));
  }
  open("11.0");
  for (const Case& one : cases) {
    for (std::size_t i = 0; i < one.guides.size(); ++i) {
      const int item = static_cast<int>(i) + 1;
      EXPECT_NEAR(shape(one.preset).Adjustments().Item(item), one.items[i], 1e-6) << one.preset << item;
      shape(one.preset + std::string(" written")).Adjustments().Item(item, one.items[i]);
    }
  }
  const std::string path = folder.path("old.pptx");
  presentation.SaveCopyAs(path);
  openFile(path, "12.0");
  for (const Case& one : cases) {
    for (std::size_t i = 0; i < one.guides.size(); ++i) {
      EXPECT_NEAR(shape(one.preset + std::string(" written")).Adjustments().Item(static_cast<int>(i) + 1),
                  one.guides[i] / 100000.0, 1e-5)
          << one.preset << i;
    }
  }
}

}  // namespace
}  // namespace vellumark::test
