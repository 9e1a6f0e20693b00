// Scripts that work dialogs, and what they say when they can't.

#include <gtest/gtest.h>

#include "base/error.h"
#include "ui/everything_form.h"
#include "ui/headless/headless_toolkit.h"
#include "ui/keys.h"

namespace vellumark::ui {
namespace {

class MarginForm : public Form {
 public:
  MarginForm() : Form("MarginForm", "Margins") {
    style.addItem("Plain");
    style.addItem("Fancy; new");
    tbM[0].onValidate = [this](bool& cancel) { cancel = tbM[0].text() == "x"; };
    btnOK.onClick = [this] { unload(); };
    tree.labelEdit(true);
    tree.add("", "k1", "First");
    tree.add("k1", "k2", "Second");
    locked.locked(true);
    disabled.enabled(false);
    onKeyDown = [this](int key, int) {
      keys += std::to_string(key) + " ";
      if (key == keys::escape) unload();
    };
    onKeyPress = [this](char32_t& key) {
      keys += static_cast<char>(key);
      if (key == U'-') key = 0;
    };
    picture.onMouseDown = [this](int button, int, double x, double y) {
      keys += "[" + std::to_string(button) + " " + std::to_string(static_cast<int>(x + y)) + "]";
    };
    timer.onTimer = [this] { keys += "."; };
  }
  ControlArray<TextBox, 2> tbM{*this, "tbM"};
  CheckBox check{*this, "check", "Check"};
  ComboBox style{*this, "style"};
  ListBox list{*this, "list", true};
  ScrollBar spin{*this, "spin", -10, 10, 0};
  TreeView tree{*this, "tree"};
  TextBox locked{*this, "locked"};
  TextBox disabled{*this, "disabled"};
  Label link{*this, "link", "Help"};
  PictureBox picture{*this, "picture", 20, 20};
  Timer timer{*this, "timer", 100};
  CommandButton btnOK{*this, "btnOK", "OK"};
  std::string keys;
};

class Headless : public ::testing::Test {
 protected:
  Headless() {
    setToolkit(&toolkit);
    toolkit.observer = [this](const Shown& one) { shown.push_back(one); };
  }
  ~Headless() override { setToolkit(nullptr); }

  std::string faultOf(const std::string& script) {
    MarginForm form;
    try {
      if (!script.empty()) toolkit.addDialog(script);
      form.showModal();
    } catch (const base::Error& error) {
      EXPECT_EQ(error.number(), base::errors::invalidCall);
      return error.description();
    }
    return {};
  }

  HeadlessToolkit toolkit;
  std::vector<Shown> shown;
};

TEST_F(Headless, ScriptsActAsUsersDo) {
  MarginForm form;
  int links = 0;
  form.link.onClick = [&] { ++links; };
  form.list.addItem("a");
  toolkit.addDialog(
      "marginform: tbM(0)=1.5; TBM(1)=' a;b '; check=true; style='Fancy; new'; spin=7; spin!step=-1; "
      "list!check=a; "
      "tree=Second; tree!label=2nd; link; btnOK");
  form.showModal();
  EXPECT_EQ(form.tbM[0].text(), "1.5");
  EXPECT_EQ(form.tbM[1].text(), " a;b ");
  EXPECT_TRUE(form.check.value());
  EXPECT_EQ(form.style.listIndex(), 1);
  EXPECT_EQ(form.spin.value(), 6);
  EXPECT_TRUE(form.list.checked(0));
  EXPECT_EQ(form.tree.find("k2")->text, "2nd");
  EXPECT_EQ(links, 1);
  EXPECT_FALSE(form.loaded());
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0].name, "MarginForm");
  EXPECT_TRUE(toolkit.unused().empty());
}

TEST_F(Headless, KeysAndMouseAndTimeComeFromScripts) {
  MarginForm form;
  form.timer.enabled(true);
  toolkit.pass(1000);  // the form isn't loaded
  toolkit.addDialog(
      "MarginForm: form!type=a-B; picture!click=3,4; form!wait=250; picture!rightclick=1,1; form!press=F2; "
      "form!press=escape");
  form.showModal();
  EXPECT_EQ(form.keys, "65 a-66 B[1 7]..[2 2]113 27 ");
  EXPECT_EQ(form.tbM[0].text(), "aB");
  toolkit.pass(1000);
  EXPECT_EQ(form.keys.back(), ' ') << "a timer ticks behind its form";
}

TEST_F(Headless, TimersTickInTheOrderOfTime) {
  Form form("Timed", "");
  Timer slow(form, "slow", 30);
  Timer fast(form, "fast", 20);
  std::string ticks;
  slow.onTimer = [&] { ticks += 's'; };
  fast.onTimer = [&] {
    ticks += 'f';
    if (ticks.size() > 4) fast.interval(5);
  };
  for (Timer* timer : {&slow, &fast}) timer->enabled(true);
  form.load();
  toolkit.pass(60);
  EXPECT_EQ(ticks, "fsfsf");
  toolkit.pass(9);
  fast.interval(5);  // the same one leaves the beat alone
  toolkit.pass(1);
  slow.enabled(false);
  toolkit.pass(20);
  EXPECT_EQ(ticks, "fsfsfffffff");

  Passing passing;
  passing.showModeless();
  toolkit.pass(1000);
  EXPECT_TRUE(passing.gone && !passing.loaded());
  EXPECT_EQ(passing.ticks, 2);
}

TEST_F(Headless, WhatCannotBeDoneIsOneClearLine) {
  const struct {
    const char* script;
    const char* says;
  } cases[] = {
      {"", "no script answers it"},
      {"OtherForm: btnOK", "the next script is for 'OtherForm'"},
      {"MarginForm: nothing=1; btnOK", "there is no control 'nothing'"},
      {"MarginForm: disabled=1; btnOK", "disabled"},
      {"MarginForm: locked=1; btnOK", "locked"},
      {"MarginForm: check=perhaps; btnOK", "neither true nor false"},
      {"MarginForm: style=None; btnOK", "there are 'Plain', 'Fancy; new'"},
      {"MarginForm: spin=1.x; btnOK", "no whole number"},
      {"MarginForm: link=1; btnOK", "takes no value"},
      {"MarginForm: tbM(0)=x; btnOK", "'tbM(0)' holds a value that it doesn't accept"},
      {"MarginForm: tbM(0)=1", "still open"},
      {"MarginForm: btnOK; tbM(0)=1", "was closed before"},
      {"MarginForm", "names no form"},
      {"MarginForm: tbM(0)='x; btnOK", "not closed"},
      {"MarginForm: =3", "names no control"},
      {"MarginForm: picture!click=3", "no place"},
      {"MarginForm: check!click=3,4", "only pictures"},
      {"MarginForm: form!press=Any", "there is no key 'Any'"},
      {"MarginForm: form!wait=soon", "no whole number"},
      {"MarginForm: form!jump", "knows no act 'jump'"},
  };
  for (const auto& [script, says] : cases) {
    toolkit = HeadlessToolkit();
    const std::string fault = faultOf(script);
    EXPECT_NE(fault.find(says), std::string::npos) << script << " says: " << fault;
    EXPECT_EQ(fault.find('\n'), std::string::npos);
  }
}

TEST_F(Headless, BoxesTakeAnswersInOrderAndDefaultsAfterwards) {
  toolkit.addAnswer("no");
  toolkit.addAnswer("typed");
  EXPECT_EQ(messageBox("Sure?", Icon::question, Buttons::yesNoCancel, "T"), Answer::no);
  EXPECT_EQ(inputBox("Name", "T", "default"), "typed");
  EXPECT_EQ(messageBox("Sure?", Icon::critical, Buttons::yesNoCancel, "T", 3), Answer::cancel);
  EXPECT_EQ(inputBox("Name", "T", "default"), "default");
  EXPECT_EQ(fileDialog({}), std::nullopt);
  EXPECT_TRUE(toolkit.sawCritical());
  ASSERT_EQ(shown.size(), 5u);
  EXPECT_EQ(shown[0].answer, "No");
  toolkit.addAnswer("Retry");
  EXPECT_THROW(messageBox("Sure?", Icon::question, Buttons::yesNo, "T"), base::Error);
  toolkit.addAnswer("cancel");
  EXPECT_EQ(inputBox("Name", "T", "default"), std::nullopt);
}

TEST_F(Headless, AFormWithoutAScriptGoesToTheScreenIfThereIsOne) {
  MarginForm form;
  toolkit.screen = [](Form& shownForm) {
    shownForm.unload();
    return true;
  };
  form.showModal();
  EXPECT_TRUE(toolkit.sawForm("MarginForm"));
  toolkit.addDialog("Never: btnOK");
  EXPECT_EQ(toolkit.unused(), std::vector<std::string>{"Never: btnOK"});
}

}  // namespace
}  // namespace vellumark::ui
