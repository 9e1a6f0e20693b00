// What the selection watch finds, and which entries of the toolbars follow from it.

#include "commands/ppt_events.h"

#include <gtest/gtest.h>

#include "commands/commands_stage.h"
#include "support/overlay.h"

namespace vellumark::commands {
namespace {

using test::FakeObject;
using test::Texts;

class Events : public test::CommandsStage {
 protected:
  Events() {
    auto slide = deck.slide("titleOnly");
    slide.placeholder("title").text("Title").named("Title");
    slide.shape("rect", 10, 20, 100, 50).named("Rect").text("text");
    slide.shape("rect", 10, 20, 100, 50).named("Rect30").rotate(30);
    slide.shape("rect", 10, 20, 100, 50).named("Rect45.4").rotate(45.4);
    slide.shape("rect", 10, 20, 100, 50).named("Rect89.6").rotate(89.6);
    slide.shape("rect", 10, 20, 100, 50).named("Flipped").flipHorizontally();
    slide.shape("homePlate", 10, 20, 100, 50).named("Pentagon");
    slide.shape("chevron", 10, 20, 100, 50).named("Chevron");
    slide.shape("chevron", 10, 20, 100, 50).named("Chevron90").rotate(90);
    slide.shape("chevron", 10, 20, 100, 50).named("Chevron30").rotate(30);
    slide.shape("roundRect", 10, 20, 100, 50).named("Rounded");
    slide.shape("notchedRightArrow", 10, 20, 100, 50).named("Arrow");
    slide.shape("upDownArrow", 10, 20, 100, 50).named("UpDown");
    slide.textBox(10, 20, 100, 50, "box").named("Box");
    slide.picture(10, 20, 50, 50).named("Picture");
    slide.table(10, 20, 100, 50, {{"a", "b"}}).named("Table");
    slide.group(10, 20, 100, 50).named("Group").children().shape("homePlate", 10, 20, 100, 50);
    deck.slide();
  }

  std::string flags() {
    const core::SelectionFlags& f = events->flags();
    std::string text = std::to_string(f.shapeCount) + "/" + std::to_string(f.slideCount);
    if (f.allRightAngled) text += " right";
    if (f.allSameOrientation) text += " same";
    if (f.allBlockArrows) text += " arrows";
    if (f.allPentagons) text += " pentagons";
    if (f.allRoundedRectangles) text += " rounded";
    if (f.allTextShapes) text += " text";
    return text;
  }

  /// The groups of entries that are enabled; the entries of a group must agree.
  std::string enabled() {
    struct Group {
      const char* name;
      std::vector<std::pair<const char*, const char*>> entries;  // caption, popup
    };
    const Group groups[] = {
        {"slides",
         {{"Paste on selected slides", "Tools"},
          {"Disconnect selected agenda slides from Agenda Wizard", "Tools"},
          {"Save selected slides as new presentation", "Tools"},
          {"E-mail selected slides", "Tools"}}},
        {"angles", {{"Align angles", ""}}},
        {"text", {{"Fit AutoShape to text", ""}, {"Wrap text in AutoShape", ""}}},
        {"header", {{"Adjust pentagon header", ""}}},
        {"chain", {{"Align process chain", ""}}},
        {"switch", {{"Switch objects", ""}}},
        {"shape",
         {{"Set AutoShape margins", ""},
          {"Beautify indents", ""},
          {"Decrease indent level", ""},
          {"Increase indent level", ""},
          {"Beautify block arrows", "Tools"},
          {"Tweak AutoShape adjustments", "Tools"},
          {"Hide selected shapes", "Tools"},
          {"Text statistics", "Tools"}}},
        {"two",
         {{"Align left to master left", ""},
          {"Align center to master center", ""},
          {"Align right to master right", ""},
          {"Align top to master top", ""},
          {"Align middle to master middle", ""},
          {"Align bottom to master bottom", ""},
          {"Move left to master right", ""},
          {"Move right to master left", ""},
          {"Move top to master bottom", ""},
          {"Move bottom to master top", ""},
          {"Rounded rectangles", "Tools"},
          {"Create motion path", "Tools"},
          {"Align vertically in golden section", "Tools"}}},
        {"two90",
         {{"Stretch to master width", ""},
          {"Stretch to master height", ""},
          {"Stretch to master width and height", ""},
          {"Stretch to master left", ""},
          {"Stretch to master right", ""},
          {"Stretch to master top", ""},
          {"Stretch to master bottom", ""},
          {"Stretch left to master right", ""},
          {"Stretch right to master left", ""},
          {"Stretch top to master bottom", ""},
          {"Stretch bottom to master top", ""}}},
    };
    std::string text;
    for (const Group& group : groups) {
      std::size_t on = 0;
      for (const auto& [caption, popup] : group.entries) on += entry(caption, popup).Enabled() ? 1U : 0U;
      EXPECT_TRUE(on == 0 || on == group.entries.size()) << group.name;
      if (on > 0) text += std::string(group.name) + " ";
    }
    return text;
  }
  /// States of the two text toggles.
  std::pair<int, int> toggles() {
    return {entry("Fit AutoShape to text").State(), entry("Wrap text in AutoShape").State()};
  }
};

TEST_F(Events, Flags) {
  open();
  EXPECT_EQ(flags(), "0/0") << "before the first look";
  struct Case {
    std::vector<std::string> shapes;
    const char* flags;
  };
  const Case cases[] = {
      {{"Rect"}, "1/1 right same text"},
      {{"Rect45.4"}, "1/1 same text"},
      {{"Rect89.6"}, "1/1 right same text"},
      {{"Rect", "Rect89.6"}, "2/1 right text"},
      {{"Rect", "Flipped"}, "2/1 right text"},
      {{"Pentagon", "Chevron"}, "2/1 right same pentagons text"},
      {{"Chevron", "Chevron90"}, "2/1 right pentagons text"},
      {{"Chevron", "Rect"}, "2/1 right same text"},
      {{"Rounded"}, "1/1 right same rounded text"},
      {{"Rounded", "Rect"}, "2/1 right same text"},
      {{"Arrow", "UpDown"}, "2/1 right same arrows text"},
      {{"Arrow", "Chevron"}, "2/1 right same text"},
      {{"Title", "Box", "Rect"}, "3/1 right same text"},
      {{"Rect", "Picture"}, "2/1 right same"},
      {{"Table"}, "1/1 right same"},
      {{"Group"}, "1/1 right same"},
      {{}, "0/1"},
  };
  for (const Case& c : cases) {
    select(c.shapes);
    EXPECT_EQ(flags(), c.flags) << testing::PrintToString(c.shapes);
  }
  shape("Rect").TextFrame().TextRange().Select();
  EXPECT_EQ(flags(), "1/1 right same text") << "a selection of text still has its shape";
  host->selectSlides(std::array{1, 2});
  EXPECT_EQ(flags(), "0/2");
  host->application().ActiveWindow().Close();
  events->checkSelection();
  EXPECT_EQ(flags(), "0/0");
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Events, EntriesFollowTheShapes) {
  struct Case {
    std::vector<std::string> shapes;
    const char* enabled;
  };
  const Case cases[] = {
      {{"Rect"}, "text shape "},
      {{"Picture"}, "shape "},
      {{"Rect", "Box"}, "text header switch shape two two90 "},
      {{"Rect", "Rect30"}, "text header switch shape two two90 "},
      {{"Rect30", "Rect"}, "text header switch shape two "},
      {{"Rect", "Rect45.4", "Box"}, "text shape two "},
      {{"Rect", "Picture", "Box"}, "shape two two90 "},
      {{"Pentagon", "Chevron"}, "angles text header chain switch shape two two90 "},
      {{"Chevron", "Chevron90"}, "angles text header switch shape two two90 "},
      {{"Chevron", "Chevron30"}, "angles text header switch shape two two90 "},
      {{"Chevron30", "Chevron30"}, "text shape "},
      {{"Group", "Pentagon", "Chevron"}, "shape two two90 "},
      {{"Table"}, "shape "},
      {{}, ""},
  };
  for (const char* version : {"9.0", "10.0", "11.0"}) {
    open(version);
    EXPECT_EQ(enabled(), "") << "all start disabled";
    for (const Case& c : cases) {
      select(c.shapes);
      EXPECT_EQ(enabled(), c.enabled) << version << " " << testing::PrintToString(c.shapes);
    }
    shape("Rect").TextFrame().TextRange().Select();
    EXPECT_EQ(enabled(), "text shape ");
    EXPECT_EQ(failures.take(), Texts{}) << "every entry was found";
  }
}

TEST_F(Events, EntriesFollowTheView) {
  open("10.0");
  const std::pair<int, const char*> views[] = {
      {host::ppViewSlideSorter, "slides "}, {host::ppViewThumbnails, "slides "},
      {host::ppViewOutline, "slides "},     {host::ppViewNotesPage, ""},
      {host::ppViewSlide, "slides "},  // selecting them makes the thumbnails' pane the active one
  };
  for (const auto& [view, expected] : views) {
    host->showView(view);
    host->selectSlides(std::array{2, 1});
    events->toggle();
    EXPECT_EQ(enabled(), expected) << view;
  }
  host->showView(host::ppViewSlideSorter);
  events->toggleOff();
  EXPECT_EQ(enabled(), "");
  events->togglePresentation(false);
  EXPECT_FALSE(entry("Open containing folder", "Tools").Enabled());
  host->selectSlides(std::array{1});
  host->application().ActiveWindow().Close();
  events->toggle();
  EXPECT_EQ(enabled(), "") << "no window";
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Events, TextTogglesShowTheirState) {
  open("9.0");
  using State = std::pair<int, int>;
  constexpr int up = 0, down = -1, mixed = 2;
  select({"Rect"});
  shape("Rect").TextFrame().AutoSize(host::ppAutoSizeShapeToFitText);
  shape("Rect").TextFrame().WordWrap(true);
  events->toggle();
  EXPECT_EQ(toggles(), State(down, down));
  shape("Rect30").TextFrame().AutoSize(host::ppAutoSizeNone);
  shape("Rect30").TextFrame().WordWrap(false);
  select({"Rect30"});
  EXPECT_EQ(toggles(), State(up, up));
  select({"Rect", "Rect30"});
  EXPECT_EQ(toggles(), State(mixed, mixed));
  select({"Picture"});
  EXPECT_EQ(toggles(), State(up, up));
  select({"Rect"});
  EXPECT_EQ(toggles(), State(down, down));
  select({});
  EXPECT_EQ(toggles(), State(up, up));
  EXPECT_EQ(failures.take(), Texts{});
}

// Slides are chosen in thumbnails, sorter and outline; shapes are worked on where slides and masters of every
// kind are edited. In any other view nothing is enabled.
TEST_F(Events, EveryViewWithEveryKindOfSelection) {
  open("11.0");
  select({"Rect", "Box"});
  const host::ObjectRef range = host->application().ActiveWindow().Selection().ShapeRange().object();
  const auto changed = [&](int view, int type) {
    const auto pane =
        std::make_shared<FakeObject>("Pane", std::map<std::string, host::Value>{{"ViewType", view}});
    const auto window = std::make_shared<FakeObject>(
        "DocumentWindow", std::map<std::string, host::Value>{{"ActivePane", pane}});
    events->pptApp_WindowSelectionChange(host::Selection(std::make_shared<FakeObject>(
        "Selection",
        std::map<std::string, host::Value>{{"Type", type}, {"ShapeRange", range}, {"Parent", window}})));
    return enabled();
  };
  const std::string ofShapes = "text header switch shape two two90 ";
  for (int view = 1; view <= 12; ++view) {
    const bool editing = view == 1 || view == 2 || view == 4 || view == 5 || view == 8;
    const bool choosing = view == 6 || view == 7 || view == 11;
    EXPECT_EQ(changed(view, host::ppSelectionNone), "") << view;
    EXPECT_EQ(changed(view, host::ppSelectionSlides), choosing ? "slides " : "") << view;
    EXPECT_EQ(changed(view, host::ppSelectionShapes), editing ? ofShapes : "") << view;
    EXPECT_EQ(changed(view, host::ppSelectionText), editing ? "text shape " : "") << view;
  }
  EXPECT_EQ(failures.take(), Texts{});
}

// Windows in transition fail in one way that is expected and silent; other failures are reported.
TEST_F(Events, WindowsInTransition) {
  open("11.0");
  const auto failing = [](int number) {
    return host::Selection(std::make_shared<FakeObject>(
        "Selection", std::map<std::string, host::Value>{},
        std::map<std::string, FakeObject::Function>{
            {"Parent", [number](auto) -> host::Value { base::raise(number); }}}));
  };
  select({"Rect", "Box"});
  events->pptApp_WindowSelectionChange(failing(base::errors::unspecific));
  EXPECT_EQ(enabled(), "");
  EXPECT_EQ(failures.take(), Texts{});
  events->toggle();
  EXPECT_NE(enabled(), "");
  events->pptApp_WindowSelectionChange(failing(5));
  EXPECT_EQ(failures.take(), Texts{"pptEvents, pptApp_WindowSelectionChange: 5"});
  EXPECT_NE(enabled(), "");
  events->toggleButton("no bar", "Align angles", true);
  events->togglePopupEntry(toolsBar::name, "Tools", "no entry", true);
  EXPECT_EQ(failures.take(),
            (Texts{"pptEvents, toggleButton: -2147024809", "pptEvents, togglePopupEntry (: -2147024809"}));
}

/// The windows of such hosts fail when they are asked for their selection.
TEST_F(Events, ASelectionThatCannotBeReadYetEndsQuietly) {
  for (const char* version : {"11.0", "14.0"}) {
    SCOPED_TRACE(version);
    open(version);
    select({"Rect", "Box"});
    const host::Selection selection = host->application().ActiveWindow().Selection();
    const auto failing = [](std::span<const host::Value>) -> host::Value {
      base::raise(base::errors::unspecific);
    };
    const auto window =
        std::make_shared<test::Overlay>(host->application().ActiveWindow().object(),
                                        std::map<std::string, FakeObject::Function>{{"Selection", failing}});
    core::globals().powerPointApp =
        host::Application(test::overlaid(host->application().object(), "ActiveWindow", window));
    events->pptApp_WindowSelectionChange(selection);
    EXPECT_EQ(flags(), "0/0");
    EXPECT_EQ(failures.take(), Texts{});
  }
}

TEST_F(Events, OnlyRibbonHostsInvalidateTheRibbon) {
  for (const auto& [version, expected] : {std::pair("12.0", 1), {"14.0", 1}, {"15.0", 0}, {"11.0", 0}}) {
    open(version);
    select({"Rect"});  // before the ribbon was loaded
    int invalidated = 0;
    core::globals().ribbonUI = host::IRibbonUI(
        std::make_shared<FakeObject>("IRibbonUI", std::map<std::string, host::Value>{},
                                     std::map<std::string, FakeObject::Function>{{"Invalidate", [&](auto) {
                                                                                    ++invalidated;
                                                                                    return host::Value();
                                                                                  }}}));
    select({"Box"});
    EXPECT_EQ(invalidated, expected) << version;
    EXPECT_EQ(flags(), "1/1 right same text");
    events->PowerPointApp({});
    select({"Table"});
    EXPECT_EQ(flags(), "1/1 right same text") << "no longer connected";
    EXPECT_EQ(failures.take(), Texts{}) << version;
  }
}

}  // namespace
}  // namespace vellumark::commands
