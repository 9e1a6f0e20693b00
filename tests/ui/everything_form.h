#pragma once
// A form for the tests of toolkits.

#include <string>
#include <vector>

#include "ui/controls.h"
#include "ui/form.h"
#include "ui/lists.h"

namespace vellumark::ui {

using Log = std::vector<std::string>;

/// Every kind of control on one form, which notes its events.
class Everything : public Form {
 public:
  Everything() : Form("Everything", "Every control") {
    notes.multiLine(true);
    notes.size(30, 3);
    link.link(true);
    paragraph.wrapAt(40);
    btnOK.isDefault(true);
    btnCancel.isCancel(true);
    for (const char* item : {"Small", "Medium", "Large"}) {
      sizes.addItem(item);
      typed.addItem(item);
      list.addItem(item);
      plain.addItem(item);
    }
    list.lines(3);
    plain.lines(3);
    tree.add("", "a", "Chapter");
    tree.add("a", "b", "Section");
    tree.labelEdit(true);
    picture.canvas().ellipse(0, 0, 32, 32, rgb(192, 57, 43));
    picture.canvas().line(0, 16, 32, 16, rgb(255, 255, 255), 2);
    picture.canvas().text(12, 2, "A", 10, rgb(255, 255, 255), true);
    bar.value(40);
    layout(column({row({layers({Box(picture), Box(board)}), Box(paragraph).stretch()}),
                   grid(2, {Box(nameLabel), Box(name).stretch(), Box(sizeLabel), Box(sizes).stretch(),
                            Box(typedLabel), Box(typed).stretch()}),
                   row({Box(amount), Box(spinner), Box(check), Box(color)}), Box(notes), Box(rule),
                   row({column({Box(left), Box(right)}).in(frame).stretch(), Box(plain).stretch()}),
                   row({Box(list).stretch(), Box(tree).stretch()}), Box(bar),
                   row({Box(link), space(), Box(btnOK), Box(btnCancel)})}));
    name.onChange = [this] { log.push_back("name=" + name.text()); };
    name.onValidate = [this](bool& cancel) {
      log.push_back("validate " + name.text());
      cancel = name.text() == "bad";
    };
    spinner.onChange = [this] { amount.text(std::to_string(-spinner.value())); };
    check.onClick = [this] { log.push_back(check.value() ? "checked" : "unchecked"); };
    for (OptionButton* option : {&left, &right}) {
      option->onClick = [this, option] { log.push_back(option->name()); };
    }
    sizes.onClick = [this] { log.push_back("size " + sizes.text()); };
    typed.onChange = [this] { log.push_back("typed " + typed.text()); };
    list.onClick = [this] { log.push_back("chose " + std::to_string(list.listIndex())); };
    list.onItemCheck = [this](int index) { log.push_back("mark " + std::to_string(index)); };
    tree.onNodeClick = [this](const std::string& key) { log.push_back("node " + key); };
    tree.onBeforeLabelEdit = [this](const std::string& key, bool&) { log.push_back("edit " + key); };
    tree.onAfterLabelEdit = [this](const std::string& key, std::string& text, bool& cancel) {
      log.push_back(key + " is " + text);
      cancel = text.empty();
    };
    link.onClick = [this] { log.push_back("link"); };
    onClick = [this] { log.push_back("background"); };
    timer.onTimer = [this] { ++ticks; };
    board.canvas().copy(8, 4, picture.canvas());
    board.visible(false);
    board.tag("later");
    board.handCursor(true);
    const auto note = [this](const char* event) {
      return [this, event](int button, int shift, double x, double y) {
        log.push_back(std::string(event) + " " + std::to_string(button) + "," + std::to_string(shift) +
                      " at " + std::to_string(static_cast<int>(x)) + "," +
                      std::to_string(static_cast<int>(y)));
      };
    };
    board.onMouseDown = note("down");
    board.onMouseMove = note("move");
    board.onMouseUp = note("up");
    board.onClick = [this] { log.push_back("board"); };
    btnOK.onClick = [this] {
      log.push_back("OK");
      unload();
    };
    btnCancel.onClick = [this] {
      log.push_back("Cancel");
      unload();
    };
  }

  PictureBox picture{*this, "picture", 32, 32};
  PictureBox board{*this, "board", 60, 40};
  Label paragraph{*this, "paragraph",
                  "A longer text that doesn't fit on one line, so that it is wrapped at forty characters."};
  Label nameLabel{*this, "nameLabel", "&Name"};
  TextBox name{*this, "name"};
  Label sizeLabel{*this, "sizeLabel", "Si&ze && shape"};
  ComboBox sizes{*this, "sizes"};
  Label typedLabel{*this, "typedLabel", "&Typed"};
  ComboBox typed{*this, "typed", true};
  TextBox amount{*this, "amount", "0"};
  ScrollBar spinner{*this, "spinner", -3, 0};
  CheckBox check{*this, "check", "Chec&k"};
  ColorBox color{*this, "color", rgb(0, 112, 192)};
  TextBox notes{*this, "notes", "one\r\ntwo"};
  Line rule{*this, "rule"};
  Frame frame{*this, "frame", "Side && edge"};
  OptionButton left{*this, "left", "&Left", &frame};
  OptionButton right{*this, "right", "&Right", &frame};
  ListBox plain{*this, "plain"};
  ListBox list{*this, "list", true};
  TreeView tree{*this, "tree"};
  ProgressBar bar{*this, "bar"};
  Label link{*this, "link", "Privacy Policy"};
  Timer timer{*this, "timer", 1};
  CommandButton btnOK{*this, "btnOK", "&OK"};
  CommandButton btnCancel{*this, "btnCancel", "&Cancel"};
  Log log;
  int ticks = 0;
};

/// Closes itself with the second tick of its timer, and has gone with it.
class Passing : public Form {
 public:
  Passing() : Form("Passing", "Goes by itself") {
    bare(true);
    layout(column({Box(text)}));
    timer.enabled(true);
    timer.onTimer = [this] {
      if (++ticks < 2) return;
      unload();
      gone = true;
    };
  }
  Label text{*this, "text", "A moment"};
  Timer timer{*this, "timer", 10};
  int ticks = 0;
  bool gone = false;
};

}  // namespace vellumark::ui
