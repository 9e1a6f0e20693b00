// What is found on sheets and among slides, right after they were changed in every way that there is.

#include <functional>
#include <string>
#include <vector>

#include "deck/model/shape_fixture.h"
#include "host/constants.h"

namespace vellumark::test {
namespace {

using Names = std::vector<std::string>;

class SheetIndexTest : public ShapeTest {
 protected:
  /// Looks up each shape by place and by name; both ways find the same one.
  Names names(int slide = 1) {
    Names all;
    const host::Shapes found = shapes(slide);
    for (int i = 1; i <= found.Count(); ++i) {
      all.push_back(found.Item(i).Name());
      EXPECT_EQ(found.Item(all.back()).Id(), found.Item(i).Id());
      EXPECT_EQ(found.Item(i).ZOrderPosition(), i);
    }
    return all;
  }
  std::vector<int> slideIds() {
    std::vector<int> ids;
    const host::Slides slides = presentation.Slides();
    for (int i = 1; i <= slides.Count(); ++i) {
      ids.push_back(slides.Item(i).SlideID());
      EXPECT_EQ(slides.FindBySlideID(ids.back()).SlideIndex(), i);
    }
    return ids;
  }
};

TEST_F(SheetIndexTest, ShapesAreFoundAfterEachChange) {
  const auto slide = deck.slide();
  for (const char* name : {"A", "B", "C"}) slide.shape("rect", 10, 20, 30, 40).named(name);
  open();
  ASSERT_EQ(names(), (Names{"A", "B", "C"}));
  const struct {
    const char* what;
    std::function<void()> change;
    Names expected;
  } steps[] = {
      {"rename", [&] { shape("B").Name("b2"); }, {"A", "b2", "C"}},
      {"any case", [&] { shape("B2").Name("B"); }, {"A", "B", "C"}},
      {"move", [&] { shape("C").Left(300); }, {"A", "B", "C"}},
      {"add",
       [&] { shapes().AddShape(host::msoShapeRectangle, 0, 0, 10, 10).Name("D"); },
       {"A", "B", "C", "D"}},
      {"text box",
       [&] { shapes().AddTextbox(host::msoTextOrientationHorizontal, 0, 0, 10, 10).Name("E"); },
       {"A", "B", "C", "D", "E"}},
      {"delete", [&] { shape("B").Delete(); }, {"A", "C", "D", "E"}},
      {"to front", [&] { shape("A").ZOrder(host::msoBringToFront); }, {"C", "D", "E", "A"}},
      {"backward", [&] { shape("A").ZOrder(host::msoSendBackward); }, {"C", "D", "A", "E"}},
      {"cut", [&] { host::callByName(shape("C").object(), "Cut"); }, {"D", "A", "E"}},
      {"paste", [&] { shapes().Paste(); }, {"D", "A", "E", "C"}},
      {"hide", [&] { shape("E").Visible(false); }, {"D", "A", "E", "C"}},
      {"tag", [&] { shape("E").Tags().Add("T", "1"); }, {"D", "A", "E", "C"}},
  };
  for (const auto& step : steps) {
    step.change();
    EXPECT_EQ(names(), step.expected) << step.what;
  }
  EXPECT_NE(errorOf([&] { shapes().AddShape(host::msoShapeRectangle, 0, 0, -10, 10); }), 0);
  EXPECT_EQ(names(), (Names{"D", "A", "E", "C"})) << "what was refused";
}

TEST_F(SheetIndexTest, MembersOfGroupsAreFoundAfterEachChange) {
  const auto outer = deck.slide().group(0, 0, 400, 400).named("Outer").children();
  outer.shape("rect", 0, 0, 100, 100).named("A");
  const auto inner = outer.group(200, 200, 200, 200).named("Inner").children();
  inner.shape("rect", 200, 200, 50, 50).named("B");
  inner.shape("rect", 300, 300, 100, 100).named("C");
  open();
  const auto members = [&] {
    Names all;
    const host::GroupShapes found = shape("Outer").GroupItems();
    for (int i = 1; i <= found.Count(); ++i) all.push_back(found.Item(i).Name());
    return all;
  };
  EXPECT_EQ(members(), (Names{"A", "B", "C"}));
  shape("Outer").GroupItems().Item(2).ZOrder(host::msoBringToFront);
  EXPECT_EQ(members(), (Names{"A", "C", "B"}));
  shape("Outer").GroupItems().Item(2).Delete();
  EXPECT_EQ(members(), (Names{"A", "B"}));
  shape("Outer").GroupItems().Item(2).Delete();
  EXPECT_EQ(members(), Names{"A"}) << "the inner group is empty and went too";
  shape("Outer").GroupItems().Item(1).Delete();
  EXPECT_EQ(shapes().Count(), 0);
}

TEST_F(SheetIndexTest, SlidesAreFoundAfterEachChange) {
  for (int i = 0; i < 3; ++i) deck.slide().withId(300 + i).shape("rect", 0, 0, 10, 10).named("A");
  open();
  const host::Slides slides = presentation.Slides();
  ASSERT_EQ(slideIds(), (std::vector{300, 301, 302}));
  slides.Item(2).Delete();
  EXPECT_EQ(slideIds(), (std::vector{300, 302}));
  EXPECT_EQ(errorOf([&] { slides.FindBySlideID(301); }), base::errors::invalidRequest);
  slides.Add(1, host::ppLayoutBlank);
  EXPECT_EQ(slideIds(), (std::vector{303, 300, 302}));
  host::callByName(slides.Item(3).object(), "Cut");
  EXPECT_EQ(slideIds(), (std::vector{303, 300}));
  slides.Paste(1);
  EXPECT_EQ(slideIds(), (std::vector{304, 303, 300}));
  host::callByName(slides.Item(1).object(), "Duplicate");
  EXPECT_EQ(slideIds(), (std::vector{304, 305, 303, 300}));
  EXPECT_EQ(names(2), Names{"A"});
  presentation.Tags().Add("T", "1");
  EXPECT_EQ(slideIds(), (std::vector{304, 305, 303, 300}));
  reopen();
  EXPECT_EQ(slideIds(), (std::vector{304, 305, 303, 300}));
}

}  // namespace
}  // namespace vellumark::test
