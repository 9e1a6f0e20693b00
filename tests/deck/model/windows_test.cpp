// Windows, panes, selections, command bars and what else the application offers.

#include <gtest/gtest.h>

#include "base/error.h"
#include "deck/embedded_host.h"
#include "decks/deck_builder.h"
#include "support/temp_folder.h"

namespace vellumark::deck {
namespace {

using decks::DeckBuilder;

int errorNumber(const std::function<void()>& statement) {
  try {
    statement();
  } catch (const base::Error& error) {
    return error.number();
  }
  return 0;
}

class Windows : public ::testing::Test {
 protected:
  Windows() {
    DeckBuilder deck;
    auto slide = deck.slide("titleOnly");
    for (const char* name : {"A", "B", "C"})
      slide.shape("rect", 10, 20, 100, 50).named(name).text("some text");
    deck.slide("blank");
    deck.save(folder.path("deck.pptx"));
    presentation = host.open(folder.path("deck.pptx"));
    shapes = presentation.Slides().Item(1).Shapes();
  }
  host::Selection selection() { return host.application().ActiveWindow().Selection(); }

  test::TempFolder folder;
  EmbeddedHost host;
  host::Presentation presentation;
  host::Shapes shapes;
};

TEST_F(Windows, PanesTellWhatTheyShow) {
  const host::DocumentWindow window = host.application().ActiveWindow();
  EXPECT_EQ(window.Panes().Count(), 3);
  EXPECT_EQ(window.ActivePane().ViewType(), host::ppViewSlide);
  window.Panes().Item(1).Activate();
  EXPECT_EQ(window.ActivePane().ViewType(), host::ppViewThumbnails);

  const std::pair<host::PpViewType, int> views[] = {
      {host::ppViewOutline, 3},     {host::ppViewThumbnails, 3}, {host::ppViewSlideSorter, 1},
      {host::ppViewSlideMaster, 1}, {host::ppViewNotesPage, 1},  {host::ppViewSlide, 3}};
  for (const auto& [type, panes] : views) {
    host.showView(type);
    EXPECT_EQ(window.ActivePane().ViewType(), type);
    EXPECT_EQ(window.Panes().Count(), panes);
  }
  EXPECT_EQ(errorNumber([&] { host.showView(host::ppViewHandoutMaster); }), base::errors::invalidRequest);
  EXPECT_EQ(errorNumber([&] { window.Panes().Item(4); }), base::errors::invalidRequest);
}

TEST_F(Windows, TheFourKindsOfSelection) {
  EXPECT_EQ(selection().Type(), host::ppSelectionNone);
  EXPECT_EQ(errorNumber([&] { selection().ShapeRange(); }), base::errors::invalidRequest);
  EXPECT_EQ(selection().SlideRange().SlideIndex(), 1) << "the slide in view";

  host.selectSlides(std::array{2, 1});
  EXPECT_EQ(selection().Type(), host::ppSelectionSlides);
  EXPECT_EQ(host.application().ActiveWindow().ActivePane().ViewType(), host::ppViewThumbnails);
  EXPECT_EQ(selection().SlideRange().Count(), 2);
  EXPECT_EQ(selection().SlideRange().Item(1).SlideIndex(), 2);
  EXPECT_EQ(errorNumber([&] { selection().ShapeRange(); }), base::errors::invalidRequest);

  host.application().ActiveWindow().View().GotoSlide(1);
  host.selectShapes(std::array{shapes.Item("C"), shapes.Item("A")});
  EXPECT_EQ(host.application().ActiveWindow().ActivePane().ViewType(), host::ppViewSlide);
  EXPECT_EQ(selection().Type(), host::ppSelectionShapes);
  EXPECT_EQ(selection().ShapeRange().Count(), 2);
  EXPECT_EQ(selection().ShapeRange().Item(1).Name(), "C") << "the order of selecting";
  EXPECT_EQ(selection().ShapeRange().Item(2).Name(), "A");
  EXPECT_EQ(selection().SlideRange().Count(), 1);
  EXPECT_EQ(errorNumber([&] { selection().TextRange(); }), base::errors::invalidRequest);

  shapes.Item("B").TextFrame().TextRange().Characters(6, 4).Select();
  EXPECT_EQ(selection().Type(), host::ppSelectionText);
  EXPECT_EQ(selection().TextRange().Text(), "text");
  EXPECT_EQ(selection().ShapeRange().Item(1).Name(), "B");

  host.showView(host::ppViewSlideMaster);
  EXPECT_EQ(errorNumber([&] { selection().SlideRange(); }), base::errors::invalidRequest);
}

TEST_F(Windows, SelectionChangesAreTold) {
  int changes = 0;
  const host::Subscription subscription =
      host::subscribe(host.application().object(), [&](host::Member event, std::span<host::Value> arguments) {
        ASSERT_EQ(event, host::member::WindowSelectionChange);
        ++changes;
        EXPECT_EQ(host::Selection(arguments[0].toObject()).Type(), selection().Type())
            << "told after the change";
      });
  host.selectShapes(std::array{shapes.Item("A"), shapes.Item("B")});
  EXPECT_EQ(changes, 1) << "several shapes at once";
  shapes.Item("C").Delete();
  EXPECT_EQ(changes, 1) << "a shape outside the selection";
  shapes.Item("A").Delete();
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(selection().ShapeRange().Item(1).Name(), "B");
  shapes.Item("B").Delete();
  EXPECT_EQ(selection().Type(), host::ppSelectionNone);
}

TEST_F(Windows, ObjectsOutliveWhatTheyStandFor) {
  const host::Shape shape = shapes.Item("A");
  const host::Slide slide = presentation.Slides().Item(1);
  const host::Tags tags = slide.Tags();
  host.selectShapes(std::array{shape});
  slide.Delete();
  EXPECT_EQ(errorNumber([&] { shape.Left(); }), base::errors::invalidRequest);
  EXPECT_EQ(errorNumber([&] { shape.Tags(); }), base::errors::invalidRequest);
  EXPECT_EQ(errorNumber([&] { slide.Shapes(); }), base::errors::invalidRequest);
  EXPECT_EQ(errorNumber([&] { tags.Count(); }), base::errors::invalidRequest);
  EXPECT_EQ(selection().Type(), host::ppSelectionNone);
  EXPECT_EQ(selection().SlideRange().SlideIndex(), 1) << "the view went on to a slide that is there";

  const host::DocumentWindow window = host.application().ActiveWindow();
  window.Close();
  EXPECT_EQ(host.application().Presentations().Count(), 0);
  EXPECT_EQ(errorNumber([&] { window.Selection(); }), base::errors::invalidRequest);
}

TEST(Hosts, MembersExistWhereTheyExisted) {
  for (const char* version : {"9.0", "10.0", "11.0", "12.0", "14.0", "15.0", "16.0"}) {
    const EmbeddedHost host(version);
    EXPECT_EQ(host.application().Version(), version);
    EXPECT_EQ(host.application().CommandBars().Count(), 0) << version;
  }
  EmbeddedHost host;
  EXPECT_EQ(errorNumber([&] { host::getByName(host.application().object(), "NoSuchMember"); }),
            base::errors::noSuchMember);
  EXPECT_EQ(errorNumber([&] { host::callByName(host.application().object(), "Run"); }),
            base::errors::wrongArgumentCount);
  EXPECT_EQ(host::getByName(host.application().object(), "vERSION").toString(), "14.0");
}

TEST(Hosts, MacrosAndOtherAddIns) {
  EmbeddedHost host;
  int runs = 0;
  host.state()->macros["tools.ppt!zorp.fix"] = [&] { ++runs; };
  host.application().Run("Tools.ppt!zorp.Fix");
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(errorNumber([&] { host.application().Run("Tools.ppt!zorp.other"); }),
            base::errors::invalidRequest);

  host.state()->addIns.push_back({"some.AddIn", false, nullptr});
  const host::COMAddIn addIn = host.application().COMAddIns().Item(1);
  addIn.Connect(true);
  EXPECT_TRUE(host.state()->addIns.front().connected);
  EXPECT_EQ(errorNumber([&] { addIn.Object(); }), base::errors::objectNotSet);
}

TEST(Hosts, CommandBarsHoldControlsAndTellClicks) {
  EmbeddedHost host("11.0");
  const host::CommandBars bars = host.application().CommandBars();
  const host::CommandBar bar = bars.Add("Tools bar", 1, true);
  const host::CommandBarPopup popup = bar.Controls().Add(host::msoControlPopup);
  popup.Caption("&Tools");
  const host::CommandBarButton button = popup.Controls().Add(host::msoControlButton);
  button.Caption("Do it");
  int clicks = 0;
  auto subscription =
      host::subscribe(button.object(), [&](host::Member event, std::span<host::Value> arguments) {
        EXPECT_EQ(event, host::member::Click);
        EXPECT_EQ(host::CommandBarControl(arguments[0].toObject()).Caption(), "Do it");
        ++clicks;
      });
  const host::CommandBarControl found =
      bars.Item("tools BAR").Controls().Item("Tools").Controls().Item("do it");
  EXPECT_EQ(found, button);
  host::callByName(found.object(), "Execute");
  button.Enabled(false);
  host::callByName(found.object(), "Execute");
  EXPECT_EQ(clicks, 1) << "a disabled button takes no click";
  button.Enabled(true);
  subscription.reset();
  host::callByName(found.object(), "Execute");
  EXPECT_EQ(clicks, 1);

  EXPECT_EQ(button.TooltipText(), "Do it");
  EXPECT_EQ(errorNumber([&] { popup.State(); }), base::errors::noSuchMember);
  EXPECT_EQ(errorNumber([&] { button.State(7); }), base::errors::outOfRange);
  EXPECT_EQ(errorNumber([&] { bars.Item("none"); }), base::errors::outOfRange);
  EXPECT_EQ(errorNumber([&] { bars.Add("TOOLS bar", 1, true); }), base::errors::invalidCall);
  bar.Delete();
  EXPECT_EQ(bars.Count(), 0);
  EXPECT_EQ(errorNumber([&] { bar.Controls(); }), base::errors::invalidRequest);
}

}  // namespace
}  // namespace vellumark::deck
