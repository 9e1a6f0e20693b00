#include "library/my_elements_manager.h"

#include "library/elements_stage.h"

namespace vellumark::test {
namespace {

const std::string before = "G: a=256 b=258; H: c=257; I:; ";

class Manager : public ElementsStage {
 protected:
  void open(const std::string& groups =
                "<group name='G'><element name='a' slideID='256'/><element name='b' slideID='258'/></group>"
                "<group name='H'><element name='c' slideID='257'/></group><group name='I'/>") {
    writeStore({"one", "two", "three"});
    writeIndex(groups);
    ElementsStage::open();
    dialog.emplace();
    dialog->load();
  }
  using Node = ui::TreeView::Node;
  const Node& root() const { return dialog->elementsTree.root(); }
  void choose(const std::string& name) {
    for (const auto& group : root().children) {
      if (group->text == name) dialog->elementsTree.select(group->key);
      for (const auto& element : group->children) {
        if (element->text == name) dialog->elementsTree.select(element->key);
      }
    }
  }
  /// The nodes, elements in brackets behind their group, the selected one marked.
  std::string tree() const {
    const auto label = [&](const Node& node) {
      EXPECT_EQ(node.image, node.parent == &root() ? 1 : 2);
      return node.text + (node.key == dialog->elementsTree.selectedKey() ? "*" : "");
    };
    std::string text;
    for (const auto& group : root().children) {
      text += label(*group) + "(";
      for (const auto& element : group->children) text += label(*element);
      text += ")";
    }
    return text;
  }
  void click(ui::Control& control, const char* answer = nullptr) {
    if (answer) messages.toolkit().addAnswer(answer);
    dialog->click(control);
  }
  void rename(const std::string& name) {
    dialog->elementsTree.userEditLabel(dialog->elementsTree.selectedKey(), name);
  }

  std::optional<library::myElementsManager> dialog;
};

TEST_F(Manager, MovesGoFromGroupToGroup) {
  const struct {
    const char *name, *up, *down;
  } cases[] = {
      {"a", "G(a*b)H(c)I()", "G(ba*)H(c)I()"}, {"b", "G(b*a)H(c)I()", "G(a)H(b*c)I()"},
      {"c", "G(abc*)H()I()", "G(ab)H()I(c*)"}, {"G", "G*(ab)H(c)I()", "H(c)G*(ab)I()"},
      {"H", "H*(c)G(ab)I()", "G(ab)I()H*(c)"}, {"I", "G(ab)I*()H(c)", "G(ab)H(c)I*()"},
  };
  for (const auto& c : cases) {
    for (const bool up : {true, false}) {
      open();
      choose(c.name);
      click(up ? dialog->btnUp : dialog->btnDown);
      EXPECT_EQ(tree(), up ? c.up : c.down) << c.name;
    }
  }
  open("<group name='G'/><group name='H'><element name='c' slideID='257'/></group>");
  choose("c");
  click(dialog->btnDown);
  EXPECT_EQ(tree(), "G()H(c*)") << "nowhere to go";
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Manager, NamesAreUniqueAndNeverEmpty) {
  const std::string exists = critical("The specified name already exists. Please specify a new name.");
  const struct {
    const char *node, *name;
    Texts told;
    std::string index;
  } cases[] = {
      {"a", "A", {}, "G: A=256 b=258; H: c=257; I:; "},
      {"H", "a", {}, "G: a=256 b=258; a: c=257; I:; "},
      {"a", "c", {exists}, before},
      {"a", "a", {exists}, before},
      {"H", "I", {exists}, before},
      {"H", "", {critical("The name can't be empty. Please specify a name.")}, before},
  };
  for (const auto& c : cases) {
    open();
    choose(c.node);
    rename(c.name);
    EXPECT_EQ(messages.take(), c.told) << c.node << " " << c.name;
    EXPECT_EQ(index(), c.index);
  }
  rename("it's");
  EXPECT_EQ(failures.take(), Texts{"myElementsManager, elementsTree_AfterLabelEdit: -2147467259"});
  EXPECT_EQ(index(), before);
}

TEST_F(Manager, ANewGroupWantsItsName) {
  open();
  click(dialog->btnAddGroup);
  EXPECT_EQ(tree(), "G(ab)H(c)I()<New group>*()");
  EXPECT_TRUE(dialog->elementsTree.takeLabelEdit());
  click(dialog->btnAddGroup);
  EXPECT_EQ(messages.take(), Texts{information("Before creating a new group you need to rename the group "
                                               "'<New group>'.")});
  rename("J");
  click(dialog->btnAddGroup);
  EXPECT_EQ(index(), before + "J:; <New group>:; ");
  EXPECT_EQ(savedIndex(), before);
}

TEST_F(Manager, DeletionAsksAndOkCarriesItOut) {
  open();
  dialog->focus(dialog->elementsTree);
  click(dialog->btnDelete);  // the box's default is no
  EXPECT_EQ(tree(), "G*(ab)H(c)I()");
  click(dialog->btnDelete, "Yes");
  EXPECT_EQ(tree(), "H*(c)I()") << "the next one";
  choose("c");
  click(dialog->btnDelete, "Yes");
  EXPECT_EQ(tree(), "H*()I()") << "the group of what was alone";
  const std::string sure = "Are you sure you want to delete the selected ";
  const std::string all = box("question", sure + "group 'G' including all elements?");
  EXPECT_EQ(messages.take(), (Texts{all, all, box("question", sure + "element 'c'?")}));
  EXPECT_EQ(dialog->deletedSlideIDs, "256;258;257;");
  EXPECT_EQ(savedIndex() + stored(), before + "256: one; 257: two; 258: three; ");

  click(dialog->btnOK);
  EXPECT_FALSE(dialog->loaded());
  EXPECT_EQ(savedIndex() + stored(), "H:; I:; ");
  EXPECT_EQ(invalidated, "zp_1027 ");
  EXPECT_EQ(openPresentations(), 1);
  EXPECT_EQ(failures.take(), Texts{});
}

TEST_F(Manager, CancelWritesNothingAndKeepsTheChangesInMemory) {
  open();
  choose("b");
  click(dialog->btnDelete, "Yes");
  click(dialog->btnCancel);
  EXPECT_EQ(savedIndex(), before);
  dialog.emplace();
  dialog->load();
  click(dialog->btnOK);
  EXPECT_EQ(savedIndex() + stored(), "G: a=256; H: c=257; I:; 256: one; 257: two; 258: three; ");
}

TEST_F(Manager, ASlideThatIsMissingKeepsTheDialogUp) {
  open("<group name='G'><element name='a' slideID='999'/></group>");
  choose("a");
  click(dialog->btnDelete, "Yes");
  click(dialog->btnOK);
  EXPECT_TRUE(failures.take().at(0).starts_with("myElementsManager, btnOK_Click: "));
  EXPECT_EQ(savedIndex(), "G:; ");
  EXPECT_EQ(openPresentations(), 2) << "the store stays open";
  EXPECT_TRUE(dialog->loaded());
}

TEST_F(Manager, AnEmptyLibrary) {
  open("");
  for (ui::Control* button : {&dialog->btnDelete, &dialog->btnRename, &dialog->btnUp, &dialog->btnDown})
    click(*button);
  EXPECT_EQ(failures.take(),
            (Texts{"myElementsManager, btnUp_Click: 91", "myElementsManager, btnDown_Click: 91"}));

  // Without an index there is one as soon as the manager opens; one that was not loaded is told of.
  std::filesystem::remove_all(folder.root() / "user");
  messages.toolkit().addDialog("myElementsManager: elementsTree=Miscellaneous; btnOK");
  library::manageMyElements();
  EXPECT_EQ(savedIndex() + stored(), "Miscellaneous:; none");
  messages.take();
  core::globals().myElementsDoc.reset();
  library::manageMyElements();
  EXPECT_EQ(messages.take(),
            Texts{critical("The 'My Elements' database seems to be corrupted. Please contact "
                           "us at support@vellumark.example.")});
}

}  // namespace
}  // namespace vellumark::test
