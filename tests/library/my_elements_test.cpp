#include "library/my_elements.h"

#include "library/elements_stage.h"
#include "library/my_elements_add.h"

namespace vellumark::test {
namespace {

using core::globals;

const std::string contact = "\r\nPlease contact us at support@vellumark.example";
const std::string corrupted = "The 'My Elements' database seems to be corrupted." + contact + ".";
const std::string unexpected =
    "An unexpected error occurred adding to the 'My Elements' collection." + contact;

class MyElements : public ElementsStage {
 protected:
  /// Adds the selection with a script for the dialog; the boxes that came up, but for the dialog.
  Texts add(const std::string& steps, const std::vector<std::string>& answers = {}) {
    messages.toolkit().addDialog("myElementsAdd: " + steps);
    for (const std::string& answer : answers) messages.toolkit().addAnswer(answer);
    library::addMyElements();
    Texts told = messages.take();
    std::erase(told, "Add to My Elements [none] ");
    return told;
  }
};

TEST_F(MyElements, TheFirstAdditionMakesEverything) {
  open();
  EXPECT_EQ(add("elemName=Pair; btnAddElement"), Texts{});
  EXPECT_EQ(readFile(folder.path("user/myelements/myelements.xml")),
            "<Vellumark xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
            "xsi:schemaLocation=\"http://www.vellumark.example/zorpme/myelements.xsd\" "
            "xmlns=\"http://www.vellumark.example/zorpme\" addinVersion=\"1.0\">"
            "<group name=\"Miscellaneous\"><element name=\"Pair\" slideID=\"256\"/></group></Vellumark>");
  open();  // the next start finds it all
  select({"B"});
  EXPECT_EQ(add("btnAddElement"), Texts{});
  EXPECT_EQ(savedIndex(), "Miscellaneous: Pair=256 New element=257; ");
  EXPECT_EQ(stored(), "256: A, B; 257: B; ");
}

TEST_F(MyElements, EachHostHasItsStore) {
  const struct {
    const char* version;
    bool pptx, ppt;
    const char* file;  ///< before the addition
    std::string storedPptx, storedPpt;
  } cases[] = {
      {"11.0", false, false, ".ppt", "none", "256: A, B; "},
      {"11.0", true, true, ".ppt", "256: New; ", "256: Old; 257: A, B; "},
      {"14.0", true, true, ".pptx", "256: New; 257: A, B; ", "256: Old; "},
      {"14.0", false, true, ".ppt", "256: Old; 257: A, B; ", "256: Old; "},
      {"15.0", false, false, ".ppt", "256: A, B; ", "none"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.version) + (c.pptx ? " .pptx" : "") + (c.ppt ? " .ppt" : ""));
    std::filesystem::remove_all(folder.root() / "user");
    if (c.pptx) writeStore({"New"}, ".pptx");
    if (c.ppt) writeStore({"Old"}, ".ppt");
    open(c.version);
    EXPECT_EQ(library::getMyElementsFile(), globals().myElementsFolder + "myelements" + c.file);
    EXPECT_EQ(add("btnAddElement"), Texts{});
    EXPECT_EQ(stored(".pptx"), c.storedPptx);
    EXPECT_EQ(stored(".ppt"), c.storedPpt);
    EXPECT_EQ(invalidated, std::string_view(c.version) == "11.0" ? "" : "zp_1027 ");
    EXPECT_EQ(openPresentations(), 1);
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(MyElements, NothingHappensWithoutShapes) {
  open();
  shape("A").TextFrame().TextRange().Select();
  library::addMyElements();
  EXPECT_EQ(messages.take(), Texts{information("If you would like to add an element to 'My Elements', please "
                                               "select one or more shapes first.")});
  host->application().ActiveWindow().Close();
  library::addMyElements();
  EXPECT_EQ(messages.take(), Texts{});
  EXPECT_EQ(savedIndex() + stored(), "nonenone");
}

TEST_F(MyElements, TheDialogRefusesAndCancels) {
  const std::string question = box("question", "Please enter a name for the group you would like to add.");
  const std::string before = "G: x=256; H:; ";
  const struct {
    const char* steps;
    std::vector<std::string> answers;
    Texts told;
    std::string index;
  } cases[] = {
      {"form!close", {}, {}, before},
      {"btnAddGroup; btnCancel", {"More"}, {question}, "G: x=256; H:; More:; "},
      {"btnAddGroup; btnCancel", {"Cancel"}, {question}, before},
      {"btnAddGroup; btnCancel", {""}, {question, critical("The group name cannot be empty.")}, before},
      {"btnAddGroup; btnCancel",
       {"G"},
       {question, critical("The group name 'G' already exists. Please specify a new group name.")},
       before},
      {"elemName=; btnAddElement; btnCancel",
       {},
       {critical("The 'Element name' can't be empty. Please specify a name for the element to be added.")},
       before},
      {"groupList=#-1; btnAddElement; btnCancel",
       {},
       {critical("Before adding the element, please create a new group.")},
       before},
      {"elemName=x; groupList=H; btnAddElement; elemName=X; btnAddElement",
       {},
       {critical("The specified element name already exists. Please specify a new name.")},
       "G: x=256; H: X=257; "},
      // The default's name, and an element that is called like its group.
      {"btnAddGroup; elemName=<New group>; btnAddElement",
       {},
       {question},
       "G: x=256; H:; <New group>: <New group>=257; "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.steps);
    writeStore({"x"});
    writeIndex("<group name='G'><element name='x' slideID='256'/></group><group name='H'/>");
    open();
    EXPECT_EQ(add(c.steps, c.answers), c.told);
    EXPECT_EQ(savedIndex(), c.index);
    EXPECT_EQ(stored(), c.index.find("=257") != std::string::npos ? "256: x; 257: A, B; " : "256: x; ");
    EXPECT_EQ(openPresentations(), 1);
  }
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(MyElements, AMissingDocumentIsTold) {
  writeStore({"x"});
  writeIndex("<group name='G'/>");
  open();
  globals().myElementsDoc.reset();  // the file is as it was when it was read
  EXPECT_EQ(add("btnAddGroup; btnCancel", {"OK", "G"}).back(), critical(corrupted));
  add("btnCancel");
  library::myElementsAdd dialog;
  dialog.load();
  EXPECT_EQ(messages.take(), Texts{critical(unexpected + " if the problem persists.")});

  // Lost while the store is saved, which comes before the index.
  open();
  std::string then;
  const auto saving =
      host::subscribe(host->application().object(), [&](host::Member event, std::span<host::Value>) {
        if (event != host::member::PresentationBeforeSave) return;
        then += savedIndex();
        globals().myElementsDoc.reset();
      });
  EXPECT_EQ(add("btnAddElement"), Texts{critical(unexpected)});
  EXPECT_EQ(then, "G:; ");
  EXPECT_EQ(stored(), "256: x; 257: A, B; ") << "the slide stays without an entry";
  EXPECT_EQ(savedIndex(), "G:; ");
  EXPECT_EQ(invalidated, "zp_1027 ");
}

TEST_F(MyElements, WhatAnotherProgramAddedStays) {
  open();
  add("elemName=Mine; btnAddElement");
  folder.write("user/myelements/myelements.xml", "<Vellumark><group name='Theirs'/></Vellumark>");
  EXPECT_EQ(add("elemName=Second; btnAddElement"), Texts{});
  EXPECT_EQ(savedIndex(), "Theirs: Second=257; ");
}

/// A paste that the host refuses as it refuses placeholders.
TEST_F(MyElements, PlaceholdersLeaveTheStoreAsItWas) {
  writeStore({"x"});
  writeIndex("<group name='G'/>");
  open();
  messages.toolkit().observer = [&, before = messages.toolkit().observer](const ui::Shown& shown) {
    before(shown);
    if (shown.kind == ui::Shown::Kind::form) presentation.Slides().Item(1).Copy();
  };
  EXPECT_EQ(add("btnAddElement"), Texts{information("Placeholders can not be added to 'My Elements'.")});
  EXPECT_EQ(savedIndex() + stored(), "G:; 256: x; ");
  EXPECT_EQ(openPresentations(), 1);
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(MyElements, ApostrophesBreakTheirQueries) {
  writeStore({"x"});
  writeIndex("<group name=\"It's\"/><group name='G'/>");
  open();
  add("elemName=Peter's; groupList=G; btnAddElement; btnAddGroup; elemName=y; groupList=#0; btnAddElement",
      {"Mary's"});
  EXPECT_EQ(failures.take(), (Texts{"myElementsAdd, btnAddElement_Click: -2147467259",
                                    "myElementsAdd, btnAddGroup_Click: -2147467259",
                                    "SlideWizard, addMyElements: -2147467259"}));
  EXPECT_EQ(savedIndex() + stored(), "It's:; G:; 256: x; 257: A, B; ");
}

}  // namespace
}  // namespace vellumark::test
