// Masters, notes pages, backgrounds, animations and dialogs for files.

#include <optional>
#include <pugixml.hpp>
#include <set>

#include "deck/model/shape_fixture.h"

namespace vellumark::deck {
namespace {

using test::errorOf;

class Sheets : public test::ShapeTest {
 protected:
  host::Slide slide(int index) { return presentation.Slides().Item(index); }
  std::string notes(int index) {
    const host::Placeholders placeholders = slide(index).NotesPage().Shapes().Placeholders();
    for (int i = 1; i <= placeholders.Count(); ++i) {
      if (placeholders.Item(i).PlaceholderFormat().Type() == host::ppPlaceholderBody) {
        return placeholders.Item(i).TextFrame().TextRange().Text();
      }
    }
    return "no placeholder";
  }
  void setNotes(int index, const std::string& text) {
    const host::Placeholders placeholders = slide(index).NotesPage().Shapes().Placeholders();
    for (int i = 1; i <= placeholders.Count(); ++i) {
      const host::Shape placeholder = placeholders.Item(i);
      if (placeholder.PlaceholderFormat().Type() == host::ppPlaceholderBody)
        placeholder.TextFrame().TextRange().Text(text);
    }
  }
  decks::ZipEntries saved() {
    presentation.SaveCopyAs(folder.path("look.pptx"));
    return test::readZipFile(folder.path("look.pptx"));
  }
};

TEST_F(Sheets, MastersCarryShapes) {
  deck.addMaster();
  deck.slide();
  open();
  ASSERT_EQ(presentation.Designs().Count(), 2);
  for (int i = 1; i <= 2; ++i) {
    const host::Design design = presentation.Designs().Item(i);
    EXPECT_EQ(design.HasTitleMaster(), 0);
    EXPECT_EQ(errorOf([&] { design.TitleMaster(); }), base::errors::invalidRequest);
    const host::Shapes shapes = design.SlideMaster().Shapes();
    shapes.AddShape(host::msoShapeOval, 1, 2, 3, 4).Tags().Add("n", std::to_string(i));
    shapes.Item(1).Delete();
  }
  reopen();
  for (int i = 1; i <= 2; ++i) {
    const host::Shapes shapes = presentation.Designs().Item(i).SlideMaster().Shapes();
    EXPECT_EQ(shapes.Count(), 5);
    EXPECT_EQ(shapes.Item(5).Tags().Item("N"), std::to_string(i));
  }
  EXPECT_EQ(test::packageFaults(saved()), std::vector<std::string>());
}

TEST_F(Sheets, NotesPagesAreMadeWhenSomethingIsWritten) {
  deck.slide().shape("rect", 0, 0, 1, 1);
  deck.slide();
  open();
  EXPECT_EQ(notes(1), "");
  EXPECT_EQ(notes(2), "");
  setNotes(1, "");
  EXPECT_EQ(test::changedEntries(test::readZipFile(folder.path("deck.pptx")), saved()),
            std::vector<std::string>());
  setNotes(2, "Speak up");
  EXPECT_EQ(notes(2), "Speak up");
  const decks::ZipEntries entries = saved();
  EXPECT_EQ(test::packageFaults(entries), std::vector<std::string>());
  EXPECT_TRUE(entries.contains("ppt/notesMasters/notesMaster1.xml"));
  reopen();
  EXPECT_EQ(notes(2), "Speak up");
  setNotes(1, "Slowly");
  EXPECT_EQ(test::packageFaults(saved()), std::vector<std::string>());
  reopen();
  EXPECT_EQ(notes(1), "Slowly");
  const host::Shape image = slide(1).NotesPage().Shapes().Item(1);
  EXPECT_EQ(image.PlaceholderFormat().Type(), 101);
  EXPECT_GT(image.Width(), 100);  // the notes master's
}

TEST_F(Sheets, BlackAndWhiteModes) {
  auto first = deck.slide();
  first.shape("rect", 0, 0, 10, 10).named("A");
  auto group = first.group(0, 0, 10, 10).named("Group");
  group.children().shape("rect", 0, 0, 10, 10).named("Inner");
  first.table(0, 0, 10, 10, {{"a"}}).named("Table");
  deck.slide().shape("rect", 0, 0, 10, 10);
  open();
  EXPECT_EQ(shape("A").BlackWhiteMode(), 1);
  EXPECT_EQ(slide(1).Background().BlackWhiteMode(), 1);
  shape("A").BlackWhiteMode(2);
  shape("Group").BlackWhiteMode(10);
  shape("Table").BlackWhiteMode(9);
  slide(1).Background().BlackWhiteMode(6);
  for (const int wrong : {0, 11, -1}) {
    EXPECT_EQ(errorOf([&] { shape("A").BlackWhiteMode(wrong); }), base::errors::outOfRange);
    EXPECT_EQ(errorOf([&] { slide(1).Background().BlackWhiteMode(wrong); }), base::errors::outOfRange);
  }
  reopen();
  EXPECT_EQ(shape("A").BlackWhiteMode(), 2);
  EXPECT_EQ(shape("Group").GroupItems().Item(1).BlackWhiteMode(), 10);
  EXPECT_EQ(shape("Table").BlackWhiteMode(), 9);
  EXPECT_EQ(slide(1).Background().BlackWhiteMode(), 6);
  EXPECT_EQ(slide(2).Background().BlackWhiteMode(), 1);
  EXPECT_NE(slideXml().find(R"(bwMode="blackGray")"), std::string::npos);
}

TEST_F(Sheets, AMotionJoinsTheMainSequence) {
  auto first = deck.slide();
  first.shape("rect", 0, 0, 10, 10).named("A").withId(4).text("x");
  first.picture(0, 0, 10, 10).named("B").withId(5);
  open();
  const host::Sequence sequence = slide(1).TimeLine().MainSequence();
  EXPECT_EQ(sequence.Count(), 0);
  for (const char* name : {"A", "B", "A"}) {
    const host::AnimationBehaviors behaviors =
        sequence.AddEffect(shape(name), host::msoAnimEffectPathLeft).Behaviors();
    ASSERT_EQ(behaviors.Count(), 1);
    const host::AnimationBehavior motion = behaviors.Add(host::msoAnimTypeMotion);
    motion.MotionEffect().Path("M 0 0 L 0.5 -0.25");
    motion.Timing().SmoothStart(true);
    motion.Timing().SmoothEnd(true);
    behaviors.Item(1).Delete();
    EXPECT_EQ(errorOf([&] { motion.Delete(); }), base::errors::invalidRequest);
  }
  EXPECT_EQ(sequence.Count(), 3);
  EXPECT_EQ(errorOf([&] { sequence.AddEffect(shape("A"), static_cast<host::MsoAnimEffect>(1)); }),
            base::errors::outOfRange);
  reopen();
  const host::Sequence again = slide(1).TimeLine().MainSequence();
  ASSERT_EQ(again.Count(), 3);
  EXPECT_EQ(again.Item(2).Behaviors().Item(1).MotionEffect().Path(), "M 0 0 L 0.5 -0.25");

  const std::string xml = slideXml();
  pugi::xml_document document;
  document.load_string(xml.c_str());
  std::set<int> ids;
  const auto nodes = document.select_nodes("//p:cTn");
  for (const auto& node : nodes) ids.insert(node.node().attribute("id").as_int());
  EXPECT_EQ(ids.size(), nodes.size());
  const auto effects =
      document.select_nodes("//p:cTn[@presetClass='path'][@presetID='0'][@nodeType='clickEffect']");
  EXPECT_EQ(effects.size(), 3u);
  EXPECT_EQ(document.select_nodes("//p:animMotion/p:cBhvr/p:cTn[@accel='50000'][@decel='50000']").size(), 3u);
  // Two builds of the shape with text, one for each group of effects; none of the picture.
  EXPECT_EQ(document.select_nodes("//p:bldP[@spid='4']").size(), 2u);
  EXPECT_EQ(document.select_nodes("//p:bldLst/*").size(), 2u);
  // A click for each of them, with one sequence around.
  EXPECT_EQ(document.select_nodes("//p:cTn[@nodeType='mainSeq']/p:childTnLst/p:par").size(), 3u);

  shape("A").Delete();
  EXPECT_EQ(slide(1).TimeLine().MainSequence().Count(), 1);
}

TEST_F(Sheets, TheProgramAnswersDialogsForFiles) {
  deck.slide();
  open();
  const host::Application application = host->application();
  EXPECT_EQ(application.FileDialog(host::msoFileDialogSaveAs).Show(), host::msoFalse);
  std::optional<std::string> answer;
  FileQuestion asked;
  host->state()->fileAnswerer = [&](const FileQuestion& question) {
    asked = question;
    return answer;
  };
  const host::FileDialog dialog = application.FileDialog(host::msoFileDialogSaveAs);
  dialog.Title("Where to?");
  dialog.InitialFileName("there");
  EXPECT_EQ(dialog.Show(), host::msoFalse);
  EXPECT_EQ(dialog.SelectedItems().Count(), 0);
  EXPECT_EQ(asked.title + " " + asked.initialFileName, "Where to? there");
  const std::pair<const char*, const char*> names[] = {
      {"/a.b/name", "/a.b/name.pptx"}, {"name.ppt", "name.ppt"}, {"C:\\x\\y", "C:\\x\\y.pptx"}};
  for (const auto& [given, chosen] : names) {
    answer = given;
    EXPECT_EQ(dialog.Show(), host::msoTrue);
    EXPECT_EQ(dialog.SelectedItems().Item(1), chosen);
  }
  EXPECT_EQ(errorOf([&] { application.FileDialog(static_cast<host::MsoFileDialogType>(9)); }),
            base::errors::outOfRange);
}

TEST_F(Sheets, TheZoomStaysInItsRange) {
  deck.slide();
  open();
  const host::View view = host->application().ActiveWindow().View();
  view.Zoom(view.Zoom() - 1);
  EXPECT_EQ(view.Zoom(), 99);
  for (const int wrong : {9, 401}) EXPECT_EQ(errorOf([&] { view.Zoom(wrong); }), base::errors::outOfRange);
}

}  // namespace
}  // namespace vellumark::deck
