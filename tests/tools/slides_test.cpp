// Tools for whole slides and presentations.

#include <gtest/gtest.h>

#include "tools/stage.h"

namespace vellumark::tools {
namespace {

using test::Texts;

const std::string product = "Vellumark for presentations ";

class Slides : public test::Stage {
 protected:
  Slides() {
    for (int i = 0; i < 2; ++i) {
      auto slide = deck.slide();
      slide.shape("rect", 0, 0, 10, 10).named("A");
      slide.shape("rect", 0, 0, 10, 10).named("B");
    }
    open();
  }
  host::Slide slide(int index) { return presentation.Slides().Item(index); }
  void hideA(int index) {
    host->application().ActiveWindow().View().GotoSlide(index);
    const host::Shape a = slide(index).Shapes().Item("A");
    host->selectShapes(std::vector{a});
    tools.hideShapes();
  }
  bool visible(int index, const char* name) { return slide(index).Shapes().Item(name).Visible() != 0; }
  std::string tag(int index) { return slide(index).Tags().Item("zorp_hiddenShapes"); }
};

TEST_F(Slides, HiddenShapesAreMarkedAndComeBack) {
  hideA(1);
  reopen();
  EXPECT_FALSE(visible(1, "A"));
  EXPECT_TRUE(visible(1, "B"));
  EXPECT_EQ(tag(1), "1");
  EXPECT_EQ(tag(2), "");

  select({"B"});  // any shape of the slide
  tools.unhideShapes();
  EXPECT_TRUE(visible(1, "A"));
  EXPECT_EQ(tag(1), "");

  hideA(1);
  hideA(2);
  host->selectSlides(std::vector<std::int32_t>{1, 2});
  tools.unhideShapes();
  for (int index : {1, 2}) {
    EXPECT_TRUE(visible(index, "A")) << index;
    EXPECT_EQ(tag(index), "") << index;
  }

  hideA(2);
  host->selectShapes({});  // nothing selected: the slide in view
  tools.unhideShapes();
  EXPECT_TRUE(visible(2, "A"));
  EXPECT_EQ(messages.take(), Texts{});
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Slides, ThereMustBeASlideToShowShapesOn) {
  while (presentation.Slides().Count() > 0) slide(1).Delete();
  tools.unhideShapes();
  EXPECT_EQ(messages.take(),
            Texts{product + "[information] Nothing appropriate is currently selected. Please select the "
                            "slides you would like to unhide shapes on."});
}

TEST_F(Slides, TheFolderOfADeckThatWasNeverSavedIsNone) {
  host->application().Presentations().Add(true);
  tools.openContainingFolder();
  EXPECT_EQ(messages.take(),
            Texts{product + "[critical] The active presentation has not been saved yet.\r\nPlease save "
                            "the presentation first."});
  EXPECT_EQ(failures.take(), Texts{});
}

}  // namespace
}  // namespace vellumark::tools
