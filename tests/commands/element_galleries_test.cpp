// The galleries of elements: their content, their pictures, and what a click inserts.

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <filesystem>

#include "commands/commands_stage.h"
#include "commands/ribbon_callbacks.h"
#include "library/configuration.h"
#include "platform/file_date.h"
#include "ui/png_painter.h"

namespace vellumark::commands {
namespace {

using test::Texts;

/// What was painted, as "file width x height of the drawing in points"; a painter that can't save.
Texts painted;
[[maybe_unused]] bool paintNothing(const platform::Drawing&, const ui::PngFile&) { return false; }
bool paintList(const platform::Drawing& drawing, const ui::PngFile& file) {
  painted.push_back(std::filesystem::path(file.path).filename().string() + " " +
                    std::to_string(std::lround(drawing.width)) + " x " +
                    std::to_string(std::lround(drawing.height)));
  return true;
}

class ElementGalleries : public test::CommandsStage {
 protected:
  ElementGalleries() {
    deck.slide().shape("rect", 10, 20, 100, 50).named("A");
    open();
    core::Globals& g = core::globals();
    g.stylesFolder = g.configFolder + "styles\\";
    g.thumbsFolder = g.stylesFolder + "thumbs\\";
    folder.write("customization/menu.xml",
                 "<Vellumark><style name='Blue' folder='b'/><style name='Red' folder='r'/>"
                 "<menu name='One'>"
                 "<submenu name='Boxes'><menuitem name='Small' file='boxes.pptx' slideNo='2'/>"
                 "<menuitem name='Large' file='boxes.pptx' slideNo='1'/></submenu>"
                 "<submenu name='Lost'><menuitem name='Gone' file='gone.pptx' slideNo='1'/>"
                 "<menuitem name='Beyond' file='boxes.pptx' slideNo='9'/></submenu></menu>"
                 "<menu name='Two'><submenu name='More'/></menu></Vellumark>");
    library::loadMenu(library::Surface::ribbon);
    for (const char* style : {"Blue", "Red"}) {
      decks::DeckBuilder boxes;
      boxes.slide().shape("rect", 100, 100, 400, 300).named(std::string("Large ") + style).noLine();
      auto small = boxes.slide();
      small.shape("rect", 300, 200, 40, 30).named(std::string("Small ") + style).noLine();
      small.shape("ellipse", 340, 200, 20, 30).named("Dot").noLine();
      boxes.save(folder.path(std::string("customization/styles/") + style + "/boxes.pptx"));
    }
    painted.clear();
    ui::setPngPainter(paintList);
  }
  ~ElementGalleries() override { ui::setPngPainter(nullptr); }

  /// The user's own: a store of two slides and an index that names them.
  void makeStore() {
    decks::DeckBuilder store;
    store.slide().shape("rect", 50, 60, 70, 80).named("Mine").noLine();
    store.slide().shape("rect", 50, 60, 30, 20).named("Other").noLine();
    store.save(folder.path("user/myelements/myelements.pptx"));
    folder.write("user/myelements/myelements.xml",
                 "<Vellumark xmlns='urn:x'><group name='Empty'/><group name='Mine &amp; yours'>"
                 "<element name='First' slideID='256'/><element name='Second' slideID='257'/>"
                 "<element name='Far' slideID='40000'/></group></Vellumark>");
    library::loadMyElements();
  }

  static host::IRibbonControl gallery(const std::string& tag) { return control("slideWizard_1_1", tag); }
  std::vector<std::string> shapeNames() {
    std::vector<std::string> names;
    const host::Shapes shapes = presentation.Slides().Item(1).Shapes();
    for (int i = 1; i <= shapes.Count(); ++i) names.push_back(shapes.Item(i).Name());
    return names;
  }
  int openPresentations() { return host->application().Presentations().Count(); }
  std::string thumb(const std::string& name) { return folder.path("customization/styles/thumbs/" + name); }
  /// Moves the date of a file by seconds.
  void age(const std::string& name, int seconds) {
    const auto path = folder.root() / name;
    std::filesystem::last_write_time(path,
                                     std::filesystem::last_write_time(path) + std::chrono::seconds(seconds));
  }

  library::Thumbnails thumbnails = library::readThumbnails();
};

const std::string boxStart = "Vellumark for presentations [";

TEST_F(ElementGalleries, TheMenusAreWrittenWithARunningNumber) {
  const std::string gallery =
      "onAction=\"slideWizard_onAction\" getItemCount=\"slideWizard_getItemCount\" "
      "getItemLabel=\"slideWizard_getItemLabel\" getItemImage=\"slideWizard_getItemImage\" columns=\"2\" "
      "itemWidth=\"160\" itemHeight=\"120\"/>";
  thumbnails.thumbsChecked = true;
  EXPECT_EQ(slideWizard_getContent(control(1023), thumbnails),
            "<menu xmlns=\"http://schemas.microsoft.com/office/2006/01/customui\" >"
            "<menu id=\"slideWizard_1\" label=\"One\" >"
            "<gallery id=\"slideWizard_1_1\" label=\"Boxes\" tag=\"One\\Boxes\" " +
                gallery + "<gallery id=\"slideWizard_1_2\" label=\"Lost\" tag=\"One\\Lost\" " + gallery +
                "</menu><menu id=\"slideWizard_2\" label=\"Two\" >"
                "<gallery id=\"slideWizard_2_3\" label=\"More\" tag=\"Two\\More\" " +
                gallery + "</menu></menu>");
  core::globals().menuDoc.reset();
  EXPECT_EQ(slideWizard_getContent(control(1023), thumbnails),
            "<menu xmlns=\"http://schemas.microsoft.com/office/2006/01/customui\" ></menu>");
}

TEST_F(ElementGalleries, ItemsGoByTagAndIndex) {
  EXPECT_EQ(slideWizard_getItemCount(gallery("One\\Boxes")), 2);
  EXPECT_EQ(slideWizard_getItemCount(gallery("Two\\More")), 0);
  EXPECT_EQ(slideWizard_getItemLabel(gallery("One\\Boxes"), 0), "Small");
  EXPECT_EQ(numberOf([] { slideWizard_getItemLabel(gallery("One\\Boxes"), 2); }), base::errors::objectNotSet);
  EXPECT_EQ(numberOf([] { slideWizard_getItemCount(gallery("Boxes")); }), base::errors::invalidCall);
  makeStore();
  const auto mine = gallery("Mine & yours");
  EXPECT_EQ(myElements_getItemCount(mine), 3);
  EXPECT_EQ(myElements_getItemLabel(mine, 1), "Second");
  EXPECT_EQ(myElements_getItemCount(gallery("Nobody's")), 0);
  core::globals().menuDoc.reset();
  core::globals().myElementsDoc.reset();
  EXPECT_EQ(slideWizard_getItemCount(gallery("One\\Boxes")), 0);
  EXPECT_EQ(slideWizard_getItemLabel(gallery("Boxes"), 0), "");
  EXPECT_FALSE(slideWizard_getItemImage(gallery("Boxes"), 0));
  EXPECT_EQ(myElements_getItemCount(mine), 0);
  EXPECT_EQ(myElements_getItemLabel(mine, 0), "");
  EXPECT_FALSE(myElements_getItemImage(mine, 0));
}

TEST_F(ElementGalleries, AClickInsertsAllShapesInTheCurrentStyle) {
  slideWizard_onAction(gallery("One\\Boxes"), "", 0);
  EXPECT_EQ(shapeNames(), (Texts{"A", "Small Blue", "Dot"}));
  EXPECT_FLOAT_EQ(shape("Small Blue").Left(), 300);
  EXPECT_EQ(host->application().ActiveWindow().Selection().ShapeRange().Count(), 2);
  core::globals().currentStyle = "Red";
  slideWizard_onAction(gallery("One\\Boxes"), "", 1);
  EXPECT_EQ(shapeNames().back(), "Large Red");
  EXPECT_EQ(openPresentations(), 1) << "templates are closed, and nobody is asked";
  EXPECT_EQ(counters(), "statsSlideWizard 2; ");
  EXPECT_EQ(messages.take(), Texts{});

  makeStore();
  myElements_onAction(gallery("Mine & yours"), "", 1);
  EXPECT_EQ(shapeNames().back(), "Other");
  EXPECT_EQ(counters(), "statsSlideWizard 2; statsMyElements 1; ");
  EXPECT_EQ(numberOf([] { myElements_onAction(gallery("Mine & yours"), "", 2); }), base::errors::overflow)
      << "ids are 16-bit here";
  EXPECT_EQ(openPresentations(), 2) << "nothing closes the store after a failure";
}

TEST_F(ElementGalleries, WhatStandsInTheWayIsToldAndChangesNothing) {
  const auto click = [](int index = 0) { slideWizard_onAction(gallery("One\\Boxes"), "", index); };
  core::globals().currentStyle.clear();
  click();
  EXPECT_EQ(messages.take(), Texts{boxStart + "information] Please select a style first."});
  core::globals().currentStyle = "Blue";
  slideWizard_onAction(gallery("One\\Lost"), "", 0);
  EXPECT_EQ(messages.take(),
            Texts{boxStart + "critical] The template file '" +
                  platform::toSystem(core::globals().stylesFolder + "Blue\\gone.pptx") +
                  "' could not be found.\r\nPlease check your installation and contact us at "
                  "support@vellumark.example if the problem persists."});
  EXPECT_EQ(counters(), "statsSlideWizard 1; ") << "counted before the template is looked for";
  EXPECT_EQ(numberOf([] { slideWizard_onAction(gallery("One\\Lost"), "", 1); }),
            base::errors::invalidRequest);
  EXPECT_EQ(openPresentations(), 2) << "the template stays open after a failure";
  host->application().Presentations().Item(2).Close();

  core::globals().menuDoc.reset();
  click();
  EXPECT_EQ(messages.take(),
            Texts{boxStart + "critical] An unexpected error occrred inserting elements from the 'Slide "
                             "Wizard'.\r\nPlease contact us at support@vellumark.example if the problem "
                             "persists."});
  core::globals().myElementsDoc.reset();
  myElements_onAction(gallery("x"), "", 0);
  EXPECT_EQ(messages.take(),
            Texts{boxStart + "critical] An unexpected error occurred inserting your elements.\r\nPlease "
                             "contact us at support@vellumark.example if the problem persists."});
  EXPECT_EQ(shapeNames(), Texts{"A"});

  presentation.Slides().Item(1).Delete();
  click();
  myElements_onAction(gallery("x"), "", 0);
  const std::string noSlides =
      boxStart +
      "critical] The active presentation does not contain any slides.\r\nPlease add a slide before ";
  EXPECT_EQ(messages.take(), (Texts{noSlides + "adding elements.", noSlides + "inserting elements."}));
  host->application().ActiveWindow().Close();
  click();
  myElements_onAction(gallery("x"), "", 0);
  const std::string noWindow =
      boxStart +
      "critical] There is no active presentation.\r\nPlease open a presentation or create "
      "a new presentation before ";
  EXPECT_EQ(messages.take(), (Texts{noWindow + "adding elements.", noWindow + "inserting elements."}));
}

TEST_F(ElementGalleries, ElementsNeedAViewOfASlide) {
  const struct {
    host::PpViewType view;
    bool inserts;
  } cases[] = {{host::ppViewSlideSorter, false}, {host::ppViewNotesPage, false}, {host::ppViewNormal, true}};
  for (const auto& [view, inserts] : cases) {
    const std::size_t before = shapeNames().size();
    host->application().ActiveWindow().ViewType(view);
    slideWizard_onAction(gallery("One\\Boxes"), "", 1);
    EXPECT_EQ(shapeNames().size() - before, inserts ? 1U : 0U) << view;
    EXPECT_EQ(messages.take(),
              inserts ? Texts{} : Texts{boxStart + "information] Please go to normal view."});
  }
  // From the thumbnails the slide's own pane becomes the active one.
  host->application().ActiveWindow().Panes().Item(1).Activate();
  slideWizard_onAction(gallery("One\\Boxes"), "", 1);
  EXPECT_EQ(host->application().ActiveWindow().ActivePane().ViewType(), host::ppViewSlide);
  EXPECT_EQ(shapeNames().size(), 3U);
}

TEST_F(ElementGalleries, MyElementsLeavesEmptyGroupsOut) {
  EXPECT_EQ(numberOf([&] { myElements_getContent(control(1027), thumbnails); }), base::errors::objectNotSet)
      << "there is no store whose date could be read";
  makeStore();
  folder.write(
      "user/myelements/myelements.xml",
      "<Vellumark><group name='E'/><group name='G'><element name='F' slideID='256'/></group></Vellumark>");
  library::loadMyElements();
  EXPECT_EQ(
      myElements_getContent(control(1027), thumbnails),
      "<menu xmlns=\"http://schemas.microsoft.com/office/2006/01/customui\" >"
      "<gallery id=\"myElements_1\" label=\"G\" tag=\"G\" onAction=\"myElements_onAction\" "
      "getItemCount=\"myElements_getItemCount\" getItemLabel=\"myElements_getItemLabel\" "
      "getItemImage=\"myElements_getItemImage\" columns=\"2\" itemWidth=\"160\" itemHeight=\"120\"/></menu>");
  core::globals().myElementsDoc.reset();
  EXPECT_EQ(numberOf([&] { myElements_getContent(control(1027), thumbnails); }), base::errors::objectNotSet)
      << "the pictures need the document too";
}

#ifndef _WIN32  // where the pictures are painted by the system itself

TEST_F(ElementGalleries, PicturesAreMadeWhenTemplatesAreNewer) {
  // The element whose template has no such slide would end the run.
  folder.write("customization/menu.xml",
               "<Vellumark><menu name='One'><submenu name='Boxes'>"
               "<menuitem name='Small' file='boxes.pptx' slideNo='2'/>"
               "<menuitem name='Gone' file='gone.pptx' slideNo='1'/>"
               "<menuitem name='Large' file='boxes.pptx' slideNo='1'/></submenu></menu></Vellumark>");
  core::globals().styleNames = {"Blue", "Red"};
  library::loadMenu(library::Surface::ribbon);
  core::globals().currentStyle = "Red";
  age("customization/styles/Blue/boxes.pptx", -1000);
  const auto open = [&] {
    painted.clear();
    slideWizard_getContent(control(1023), thumbnails);
    return painted;
  };
  const Texts both{"boxes.pptx_2.png 60 x 30", "boxes.pptx_1.png 400 x 300"};

  ui::setPngPainter(paintNothing);
  open();
  EXPECT_EQ(
      messages.take(),
      Texts{boxStart + "critical] An error occurred creating the Slide Wizard thumbnail images.\r\nPlease "
                       "contact us at support@vellumark.example if the problem persists."});
  EXPECT_FALSE(thumbnails.thumbsChecked);
  EXPECT_EQ(library::readThumbnails().thumbsDate_slideWizard, 0) << "the next opening starts over";
  ui::setPngPainter(paintList);
  EXPECT_EQ(open(), both);
  EXPECT_TRUE(thumbnails.thumbsChecked);
  EXPECT_EQ(open(), Texts{}) << "once in a connection";

  thumbnails = library::readThumbnails();
  EXPECT_EQ(thumbnails.thumbsDate_slideWizard,
            platform::lastModified(core::globals().stylesFolder + "Blue\\boxes.pptx"));
  EXPECT_EQ(open(), Texts{}) << "equally old is not newer, and the other style doesn't count";
  thumbnails = library::readThumbnails();
  age("customization/styles/Blue/boxes.pptx", 10);
  EXPECT_EQ(open(), both);
  EXPECT_EQ(messages.take(), Texts{});
}

TEST_F(ElementGalleries, PicturesOfMyElementsGoByTheDateAtTheStart) {
  makeStore();
  folder.write("user/myelements/myelements.xml",
               "<Vellumark><group name='G'><element name='F' slideID='256'/>"
               "<element name='S' slideID='257'/></group></Vellumark>");
  library::loadMyElements();
  const auto open = [&] {
    painted.clear();
    myElements_getContent(control(1027), thumbnails);
    return painted.size();
  };
  EXPECT_EQ(open(), 2U);
  EXPECT_EQ(painted, (Texts{"256.png 70 x 80", "257.png 30 x 20"}));
  EXPECT_TRUE(std::filesystem::is_directory(folder.root() / "user/myelements/thumbs"));
  EXPECT_EQ(open(), 2U) << "the connection goes on with the date that it began with";
  thumbnails = library::readThumbnails();
  EXPECT_EQ(open(), 0U);
  ui::setPngPainter(paintNothing);
  age("user/myelements/myelements.pptx", 10);
  open();
  EXPECT_EQ(
      messages.take(),
      Texts{boxStart + "critical] An error occurred creating the My Elements thumbnail images.\r\nPlease "
                       "contact us at support@vellumark.example if the problem persists."});
  EXPECT_EQ(library::readThumbnails().thumbsDate_myElements, thumbnails.thumbsDate_myElements);
  EXPECT_EQ(host->application().Presentations().Count(), 1);
}

#endif

}  // namespace
}  // namespace vellumark::commands
