// The bar of the Slide Wizard on hosts before the ribbon: its menus, its style box, the user's own elements.

#include <gtest/gtest.h>

#include "base/text.h"
#include "commands/commands_stage.h"
#include "core/xml.h"

namespace vellumark::commands {
namespace {

using test::Texts;

const char* const blueAndGrey = "<style name='Blue' folder='b'/><style name='Grey' folder='g'/>";

class SlideWizardBar : public test::CommandsStage {
 protected:
  SlideWizardBar() {
    auto slide = deck.slide("blank");
    slide.shape("rect", 10, 20, 100, 50).named("A");
    slide.shape("rect", 200, 100, 120, 80).named("B");
  }
  /// Saves a presentation with one shape on each slide, of that name.
  void write(const std::string& path, const std::vector<std::string>& shapes) {
    decks::DeckBuilder store;
    for (const std::string& name : shapes) store.slide("blank").shape("rect", 5, 5, 50, 50).named(name);
    store.save(folder.path(path));
  }
  host::CommandBarControls controls() { return bar(slideWizardBar); }
  host::CommandBarComboBox box() { return controls().Item(2); }
  host::CommandBarControls mine() { return controls().Item("My Elements").Controls(); }
  void choose(int place) {
    box().ListIndex(place);
    box().Execute();
  }
  std::string styleTag() { return presentation.Tags().Item("zorp_style"); }
  /// The shapes of the first slide by name.
  std::string shapes() {
    std::string text;
    const host::Shapes all = presentation.Slides().Item(1).Shapes();
    for (int i = 1; i <= all.Count(); ++i) text += all.Item(i).Name() + " ";
    return text;
  }
  /// What clicking a button tells: boxes and failures.
  std::string told(const host::CommandBarButton& button) {
    button.Execute();
    Texts all = messages.take();
    for (const std::string& failure : failures.take()) all.push_back(failure);
    return base::join(all, "; ");
  }
  static std::string critical(const std::string& text) {
    return "Vellumark for presentations [critical] " + text;
  }
  std::string path(const std::string& file) {
    return platform::fromSystem(folder.root().string() + "/") + file;
  }
};

TEST_F(SlideWizardBar, MenusComeFromTheFile) {
  menu = std::string(blueAndGrey) +
         "<menu name='Text'><menuitem name='First' file='a.pptx' slideNo='2'/>"
         "<submenu name='Boxes' beginGroup='true' tooltip='Boxes of all kinds'>"
         "<menuitem name='Wide' file='b.pptx' slideNo='1' icon='wide.png' mask='wide_mask.png' tooltip='A "
         "wide one'/>"
         "<menuitem name='Tall' file='b.pptx' slideNo='3' beginGroup='-1' icon='wide.png'/></submenu>"
         "<menuitem name='Last' file='a.pptx' slideNo='1' icon='none.png' mask='wide_mask.png'/></menu>"
         "<menu name='Empty' beginGroup='1'/>";
  elements =
      "<group name='Arrows'><element name='Left' slideID='256'/><element name='Right' "
      "slideID='70000'/></group>"
      "<group name='None'/>";
  folder.write("customization/copyright.txt", "# a comment\r\nInternal\r\n\r\nSecret\r\n");
  for (const char* name : {"wide.png", "wide_mask.png"}) {
    std::filesystem::create_directories(folder.path("customization/icons"));
    std::filesystem::copy_file(TEST_SOURCE_DIR "/product/program/ui/zp_1032_16.png",
                               folder.path(std::string("customization/icons/") + name));
  }
  open("11.0");
  EXPECT_EQ(tree(controls()), R"(Vellumark for presentations [!about] help=1000 icon=1 picture
 tip=Specify style of elements to be insertedbox | [No style selected] | Blue | Grey
Text
  First [a.pptx,2] tag=zorp_SlideWizard
  Boxes group tip=Boxes of all kinds
    Wide [b.pptx,1] tip=A wide one tag=zorp_SlideWizard picture
    Tall [b.pptx,3] group tag=zorp_SlideWizard unmasked
  Last [a.pptx,1] tag=zorp_SlideWizard mask alone
Empty group
Copyright group
  Internal [insertCopyright 1]
  Secret [insertCopyright 2]
My Elements group
  Add selection to My Elements [addMyElements] tag=zorp_MyElements
  Manage My Elements [manageMyElements] tag=zorp_MyElements
  Arrows group
    Left [256] tag=zorp_MyElements
    Right [70000] tag=zorp_MyElements
  None
)");
  EXPECT_EQ(messages.take(), Texts{});
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(SlideWizardBar, WithoutAMenuFileTheRestStands) {
  const std::string rest = R"(Vellumark for presentations [!about] help=1000 icon=1 picture
 tip=Specify style of elements to be insertedbox | [No style selected]
My Elements group
  Add selection to My Elements [addMyElements] tag=zorp_MyElements
  Manage My Elements [manageMyElements] tag=zorp_MyElements
)";
  menu = "<menu";
  open("11.0");
  EXPECT_EQ(tree(controls()), rest);
  EXPECT_EQ(messages.take(), Texts{critical("The menu configuration file \r\n\r\n" +
                                            platform::toSystem(path("customization\\menu.xml")) +
                                            "\r\n\r\n could not be found or is corrupted.")});
  menu =
      "<menu name='Text'><menuitem file='a' slideNo='1'/></menu><menu name='B' beginGroup='perhaps'/><menu/>";
  open("11.0");
  EXPECT_EQ(failures.take(), (Texts{"pptControls, generateMenu: 91", "pptControls, generateMenu: 13",
                                    "pptControls, generateMenu: 91"}))
      << "each menu fails for itself";
  EXPECT_EQ(controls().Item(3).Caption(), "Text");
  EXPECT_EQ(controls().Item(4).Caption(), "My Elements");
  EXPECT_EQ(messages.take(), Texts{});
}

TEST_F(SlideWizardBar, TheStyleGoesWithThePresentation) {
  menu = blueAndGrey;
  open("10.0");
  core::Globals& g = core::globals();
  EXPECT_EQ(box().ListIndex(), 1);
  choose(3);
  EXPECT_EQ(g.currentStyle + "/" + styleTag(), "Grey/Grey");
  choose(1);
  EXPECT_EQ(g.currentStyle + "/" + styleTag(), "/");
  choose(2);
  choose(0);
  EXPECT_EQ(g.currentStyle + "/" + styleTag(), "Blue/Blue") << "no choice is no change";

  const auto shown = [&](const char* style) {
    this->CommandsStage::controls->setStyle(style);
    return std::to_string(box().ListIndex()) + " " + g.currentStyle;
  };
  EXPECT_EQ(shown("Grey"), "3 Grey");
  EXPECT_EQ(shown("Green"), "2 Blue");
  EXPECT_EQ(shown(""), "2 Blue");
  EXPECT_EQ(styleTag(), "Blue") << "what is shown is no choice of the user's";
  presentation.Close();
  choose(3);
  EXPECT_EQ(failures.take().size(), 1U) << "there is no presentation to keep it";
  menu.clear();
  open("10.0");
  EXPECT_EQ(shown("Blue"), "1 ");
}

TEST_F(SlideWizardBar, AClickInsertsInTheChosenStyle) {
  const std::string item = "<menu name='M'><menuitem name='E' file='e.pptx' slideNo='2'/></menu>";
  menu = blueAndGrey + item;
  write("customization/styles/b/e.pptx", {"b1", "b2"});
  write("customization/styles/g/e.pptx", {"g1", "g2"});
  open("11.0");
  const auto element = [&] { return controls().Item("M").Controls().Item("E"); };
  EXPECT_EQ(told(element()), "Vellumark for presentations [information] Please select a style first.");
  choose(3);
  EXPECT_EQ(told(element()), "");
  choose(2);
  EXPECT_EQ(told(element()), "");
  EXPECT_EQ(shapes(), "A B g2 b2 ");
  EXPECT_EQ(counters(), "statsSlideWizard 3; ");
  EXPECT_EQ(host->application().Presentations().Count(), 1);

  // What can't be inserted.
  const struct {
    const char* parameter;
    std::string told;
  } cases[] = {
      {"none.pptx,1",
       critical("Template '" + path("customization\\styles\\b\\none.pptx") + "' could not be opened.")},
      {"e.pptx", "SlideWizard, conjure: 9"},
      {"e.pptx,two", "SlideWizard, conjure: 13"},
      {"", "SlideWizard, conjure: 9"},
  };
  for (const auto& c : cases) {
    element().Parameter(c.parameter);
    EXPECT_EQ(told(element()), c.told) << c.parameter;
  }
  EXPECT_EQ(shapes(), "A B g2 b2 ");

  menu = "<style name='Blue' folder='b'/>" + item;
  open("11.0");
  EXPECT_EQ(box().ListIndex(), 1);
  EXPECT_EQ(told(element()), "");
  EXPECT_EQ(box().ListIndex(), 2) << "the only style chooses itself";
  EXPECT_EQ(shapes(), "A B b2 ");
  presentation.Close();
  EXPECT_EQ(told(element()),
            critical("There is no active presentation.\r\nPlease open a presentation or create a new "
                     "presentation before adding elements."));
}

TEST_F(SlideWizardBar, OnesOwnElementsFollowTheLibrary) {
  write("user/myelements/myelements.ppt", {"one", "two"});
  elements = "<group name='G'><element name='a' slideID='256'/><element name='b' slideID='257'/></group>";
  open("11.0");
  EXPECT_EQ(told(mine().Item("G").Controls().Item("b")), "");
  EXPECT_EQ(shapes(), "A B two ");
  const auto list = [&] {
    std::string text;
    for (int i = 3; i <= mine().Count(); ++i) {
      text += mine().Item(i).Caption() + ":";
      const host::CommandBarControls group = mine().Item(i).Controls();
      for (int j = 1; j <= group.Count(); ++j)
        text += " " + group.Item(j).Caption() + "=" + group.Item(j).Parameter();
      text += "; ";
    }
    return text;
  };
  select({"A"});
  messages.toolkit().addDialog("myElementsAdd: elemName=c; btnAddElement");
  mine().Item(1).Execute();
  EXPECT_EQ(list(), "G: a=256 b=257 c=258; ");
  messages.toolkit().addDialog("myElementsManager: elementsTree=b; btnUp; elementsTree=c; btnDelete; btnOK");
  messages.toolkit().addAnswer("Yes");
  mine().Item("Manage My Elements").Execute();
  EXPECT_EQ(list(), "G: b=257 a=256; ");
  messages.toolkit().addDialog("myElementsManager: elementsTree=b; btnUp; btnCancel");
  mine().Item("Manage My Elements").Execute();
  EXPECT_EQ(list(), "G: b=257 a=256; ");
  EXPECT_EQ(controls().Item("My Elements").Controls().Count(), 3);
  messages.take();
  EXPECT_EQ(failures.take(), Texts{});
  const host::CommandBarButton stale = mine().Item("G").Controls().Item("a");
  stale.Parameter("999");
  EXPECT_NE(told(stale), "") << "no such slide";
  EXPECT_EQ(counters(), "statsMyElements 5; ");
}

}  // namespace
}  // namespace vellumark::commands
