// The classic rules of forms: events, focus and validation, whoever acts.

#include "ui/form.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "ui/headless/headless_toolkit.h"

namespace vellumark::ui {
namespace {

class SampleForm : public Form {
 public:
  SampleForm() : Form("SampleForm", "Sample") {
    btnCancel.isCancel(true);
    btnOK.isDefault(true);
    check.onClick = [this] { log += "check "; };
    for (OptionButton* option : {&left, &right}) {
      option->onClick = [this, option] { log += option->name() + " "; };
    }
    tbWidth.onChange = [this] { log += "change "; };
    tbWidth.onLostFocus = [this] { log += "lost "; };
    tbWidth.onValidate = [this](bool& cancel) {
      log += "validate ";
      cancel = tbWidth.text() == "bad";
    };
    spinner.onChange = [this] { log += "spin "; };
    btnOK.onClick = [this] { log += "ok "; };
    btnCancel.onClick = [this] {
      log += "cancel ";
      unload();
    };
    list.addItem("one");
    list.addItem("two");
    list.onClick = [this] { log += "list "; };
    layout(column({Box(label), Box(tbWidth), Box(check), Box(left), Box(right), Box(spinner), Box(list),
                   row({Box(btnOK), Box(btnCancel)})}));
  }
  std::string taken() { return std::exchange(log, {}); }

  Label label{*this, "label", "&Width"};
  TextBox tbWidth{*this, "tbWidth"};
  CheckBox check{*this, "check", "&Keep"};
  OptionButton left{*this, "left", "Left"};
  OptionButton right{*this, "right", "Right"};
  ScrollBar spinner{*this, "spinner", -10, 10, 0};
  ListBox list{*this, "list", true};
  CommandButton btnOK{*this, "btnOK", "&OK"};
  CommandButton btnCancel{*this, "btnCancel", "&Cancel"};
  ControlArray<TextBox, 3> tbM{*this, "tbM"};
  std::string log;
};

TEST(Form, EventsComeOnceAndOnlyForRealChanges) {
  SampleForm form;
  form.load();
  form.tbWidth.text("5");
  form.tbWidth.text("5");
  EXPECT_EQ(form.taken(), "change ");
  form.check.value(true);
  form.check.value(true);
  form.click(form.check);
  EXPECT_EQ(form.taken(), "check check ");
  EXPECT_FALSE(form.check.value());
  form.spinner.value(99);
  EXPECT_EQ(form.spinner.value(), 10);
  form.spinner.step(1);
  form.spinner.step(-1);
  EXPECT_EQ(form.spinner.value(), 9) << "the upper arrow decreases the value";
  EXPECT_EQ(form.taken(), "spin spin ");
  form.list.listIndex(1);
  form.list.listIndex(1);
  EXPECT_EQ(form.taken(), "list ");
  EXPECT_THROW(form.list.listIndex(2), base::Error);
  form.left.value(true);
  form.right.value(true);
  EXPECT_FALSE(form.left.value()) << "options exclude each other";
  EXPECT_EQ(form.taken(), "left right ");
}

TEST(Form, LeavingAFieldValidatesItUnlessTheWayIsCancel) {
  SampleForm form;
  form.load();
  ASSERT_TRUE(form.focus(form.tbWidth));
  form.tbWidth.text("bad");
  form.taken();
  EXPECT_FALSE(form.focus(form.check));
  EXPECT_EQ(form.focused(), &form.tbWidth);
  EXPECT_FALSE(form.click(form.btnOK));
  EXPECT_EQ(form.taken(), "validate validate ") << "neither left nor clicked";
  EXPECT_TRUE(form.pressEscape());
  EXPECT_EQ(form.taken(), "lost cancel ") << "the cancel button asks nothing";
  EXPECT_FALSE(form.loaded());
  form.tbWidth.text("after the end");  // a control outlives its form's life
  EXPECT_EQ(form.taken(), "change ");
}

TEST(Form, KeysReachWhatTheyMean) {
  SampleForm form;
  form.load();
  EXPECT_TRUE(form.pressAccessKey('W')) << "a label's key means the control behind it";
  EXPECT_EQ(form.focused(), &form.tbWidth);
  EXPECT_TRUE(form.pressAccessKey('k'));
  EXPECT_TRUE(form.check.value());
  EXPECT_FALSE(form.pressAccessKey('z'));
  form.taken();
  EXPECT_TRUE(form.pressEnter());
  EXPECT_EQ(form.taken(), "ok ");
  form.focus(form.btnCancel);
  form.tab();
  EXPECT_EQ(form.focused(), &form.tbM[0]);
  form.tab(false);
  form.tab(false);
  EXPECT_EQ(form.focused(), &form.btnOK);
  form.list.enabled(false);
  form.spinner.visible(false);
  form.tab(false);
  EXPECT_EQ(form.focused(), &form.right) << "what is disabled or hidden is passed over";
  EXPECT_FALSE(form.focus(form.list));
  EXPECT_FALSE(form.click(form.list));
}

TEST(Form, LifeHasItsEventsInOrder) {
  HeadlessToolkit toolkit;
  setToolkit(&toolkit);
  SampleForm form;
  bool refuse = true;
  form.onLoad = [&] { form.log += "load "; };
  form.onActivate = [&] { form.log += "activate "; };
  form.onQueryUnload = [&](bool& cancel) {
    form.log += "query ";
    cancel = std::exchange(refuse, false);
  };
  form.onUnload = [&] { form.log += "unload "; };
  toolkit.addDialog("SampleForm: btnCancel; form!close");
  form.showModal();
  EXPECT_EQ(form.taken(), "load activate lost cancel query cancel query unload ");
  EXPECT_FALSE(form.visible());
  form.unload();
  EXPECT_EQ(form.taken(), "") << "closing twice does nothing";
  setToolkit(nullptr);
}

TEST(Form, TreesKeepKeysAndSelection) {
  SampleForm form;
  TreeView tree(form, "tree");
  std::string clicked;
  tree.onNodeClick = [&](const std::string& key) { clicked += key + " "; };
  tree.labelEdit(true);
  tree.onAfterLabelEdit = [](const std::string&, std::string& text, bool& cancel) {
    cancel = text.empty();
    text += "!";
  };
  tree.add("", "a", "A");
  tree.add("a", "a1", "A1");
  tree.add("", "c", "C");
  tree.add("", "b", "B", 0, "c");
  EXPECT_EQ(tree.root().children[1]->key, "b");
  EXPECT_THROW(tree.add("", "a1", "again"), base::Error);
  EXPECT_THROW(tree.add("none", "x", "X"), base::Error);
  tree.select("a1");
  tree.select("a1");
  tree.userEditLabel("a1", "new");
  tree.userEditLabel("a1", "");
  EXPECT_EQ(tree.find("a1")->text, "new!");
  tree.remove("a");
  EXPECT_EQ(tree.selectedKey(), "") << "the parent of what went";
  EXPECT_EQ(tree.find("a1"), nullptr);
  EXPECT_EQ(clicked, "a1 ");
}

TEST(Form, AccessKeysAndPlainCaptions) {
  SampleForm form;
  const struct {
    const char* caption;
    const char* plain;
    char key;
  } cases[] = {{"&OK", "OK", 'o'},
               {"R&&D", "R&D", 0},
               {"Save && &Close", "Save & Close", 'c'},
               {"none", "none", 0},
               {"end&", "end&", 0}};
  for (const auto& [caption, plain, key] : cases) {
    form.btnOK.caption(caption);
    EXPECT_EQ(plainCaption(caption), plain);
    EXPECT_EQ(form.btnOK.accessKey(), key) << caption;
  }
}

}  // namespace
}  // namespace vellumark::ui
