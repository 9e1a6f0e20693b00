#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>
#include <functional>
#include <string>
#include <vector>

#include "base/error.h"
#include "ui/everything_form.h"
#include "ui/keys.h"
#include "ui/pages_form.h"
#include "ui/qt/canvas_painter.h"
#include "ui/qt/qt_toolkit.h"

namespace vellumark::ui {
namespace {

class QtTest : public ::testing::Test {
 protected:
  QtTest() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QtToolkit toolkit;
    toolkit_ = &toolkit;
    before_ = setToolkit(&toolkit);
    toolkit.textWidth("");  // whatever is asked first makes Qt's application
  }
  ~QtTest() override { setToolkit(before_); }

  /// Shows the form, lets `user` work with its window, and closes it where the user didn't.
  void show(Form& form, const std::function<void()>& user) {
    QTimer::singleShot(0, [&] {
      window_ = QApplication::activeModalWidget();
      ASSERT_TRUE(window_ && QTest::qWaitForWindowActive(window_));
      user();
      form.hide();
    });
    form.showModal();
  }

  /// What somebody does with the next dialog that comes up within a user's act.
  template <typename Dialog>
  void next(const std::function<void(Dialog&)>& user) {
    QTimer::singleShot(0, [user] {
      auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      ASSERT_TRUE(dialog && QTest::qWaitForWindowActive(dialog));
      user(*dialog);
    });
  }

  template <typename Widget>
  Widget& of(const Control& control) {
    return *window_->findChild<Widget*>(QString::fromStdString(control.name()));
  }
  void type(const char* text) { QTest::keyClicks(window_->focusWidget(), text); }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window_->focusWidget(), key, modifiers);
  }
  void click(const Control& control, QPoint where = {}) {
    QTest::mouseClick(&of<QWidget>(control), Qt::LeftButton, {}, where);
  }
  std::string focused() { return window_->focusWidget()->objectName().toStdString(); }

  QtToolkit* toolkit_;
  Toolkit* before_;
  QWidget* window_ = nullptr;
};

TEST_F(QtTest, CutsNothing) {
  Everything form;
  show(form, [&] {
    for (const Control* control : form.controls()) {
      if (dynamic_cast<const Timer*>(control)) continue;
      const auto& widget = of<QWidget>(*control);
      EXPECT_TRUE(widget.isVisible() == control->visible() && window_->rect().contains(widget.geometry()))
          << control->name();
    }
    for (const Label* label : {&form.paragraph, &form.nameLabel, &form.sizeLabel, &form.link}) {
      const auto& widget = of<QLabel>(*label);
      EXPECT_GE(widget.width(), widget.wordWrap() ? 1 : widget.sizeHint().width()) << label->name();
      EXPECT_GE(widget.height(),
                widget.wordWrap() ? widget.heightForWidth(widget.width()) : widget.sizeHint().height())
          << label->name();
    }
    for (const Control* control :
         std::vector<Control*>{&form.check, &form.left, &form.btnOK, &form.btnCancel}) {
      const auto& button = of<QAbstractButton>(*control);
      EXPECT_GE(button.width(), button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width() + 16)
          << control->name();
    }
    const QSize natural = window_->size();
    window_->resize(10, 10);
    EXPECT_EQ(window_->size(), natural);
    form.check.caption("A caption that has become too long for the place that it had at first, by far");
    QTest::qWait(1);
    EXPECT_GE(of<QCheckBox>(form.check).width(), of<QCheckBox>(form.check).sizeHint().width());
    EXPECT_GT(window_->width(), natural.width());
  });
}

TEST_F(QtTest, PagesComeToTheFront) {
  PagesForm form;
  form.marks.image(0, TEST_SOURCE_DIR "/product/program/ui/zp_1032_16.png");
  show(form, [&] {
    const auto seen = [&](const Control& control) { return !of<QWidget>(control).size().isEmpty(); };
    EXPECT_TRUE(seen(form.text) && seen(form.page[0]));
    EXPECT_FALSE(seen(form.marks) || seen(form.page[1]));
    EXPECT_GE(of<QComboBox>(form.answer).view()->minimumWidth(), 333);
    EXPECT_EQ(of<QLabel>(form.second).cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(focused(), "text");
    click(form.second);
    QTest::qWait(1);
    EXPECT_FALSE(seen(form.text) || seen(form.page[0]));
    EXPECT_TRUE(seen(form.marks) && seen(form.page[1]));
    EXPECT_EQ(focused(), "marks") << "the focus leaves what is covered";
    const auto& marks = of<QListWidget>(form.marks);
    EXPECT_FALSE(marks.item(0)->icon().isNull());
    EXPECT_TRUE(marks.item(1)->icon().isNull());
  });
}

TEST_F(QtTest, TimersOfFormsThatAreNeverShownTick) {
  Everything form;
  form.load();
  form.timer.enabled(true);
  for (int i = 0; i < 200 && form.ticks == 0; ++i) QTest::qWait(5);
  EXPECT_GT(form.ticks, 0);
  EXPECT_FALSE(form.visible());
  form.unload();
  const int before = form.ticks;
  QTest::qWait(5);
  EXPECT_EQ(form.ticks, before);
}

TEST_F(QtTest, AFormClosesByItsOwnTimer) {
  Passing form;
  form.showModeless();
  EXPECT_TRUE(QApplication::topLevelWidgets().back()->windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_TRUE(QTest::qWaitFor([&] { return form.gone; }, 2000));
  EXPECT_FALSE(form.loaded());
  form.ticks = 0;
  form.showModal();
  EXPECT_EQ(form.ticks, 2);
}

TEST_F(QtTest, TheFormSeesKeysFirst) {
  Everything form;
  form.onKeyDown = [&](int key, int shift) {
    form.log.push_back("key " + std::to_string(key) + "," + std::to_string(shift));
    if (key == keys::f1) form.unload();
  };
  form.onKeyPress = [&](char32_t& key) {
    if (key == U'x') key = 0;
  };
  show(form, [&] {
    type("axb");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), "btnCancel");
    EXPECT_EQ(form.log, (Log{"key 65,0", "name=a", "key 88,0", "key 66,0", "name=ab", "key 9,1"}));
    press(Qt::Key_F1);
    EXPECT_FALSE(form.loaded());
  });

  Form empty("Empty", "Nothing takes the focus");
  Label label(empty, "label", "Text");
  empty.layout(column({Box(label)}));
  std::string typed;
  empty.onKeyPress = [&](char32_t& key) { typed += static_cast<char>(key); };
  show(empty, [&] { QTest::keyClicks(window_, "ab"); });
  EXPECT_EQ(typed, "ab");
}

TEST_F(QtTest, PicturesTellWhereTheMouseIs) {
  Everything form;
  show(form, [&] {
    form.board.visible(true);
    QTest::qWait(1);
    auto& board = of<QWidget>(form.board);
    EXPECT_TRUE(board.isVisible() && board.cursor().shape() == Qt::PointingHandCursor);
    QTest::mouseMove(&board, {5, 6});
    QTest::qWait(1);
    EXPECT_EQ(form.log, Log{"move 0,0 at 5,6"});
    form.log.clear();
    click(form.board, {59, 39});
    QTest::mouseClick(&board, Qt::RightButton, Qt::ControlModifier, {3, 4});
    EXPECT_EQ(form.log,
              (Log{"down 1,0 at 59,39", "up 1,0 at 59,39", "board", "down 2,2 at 3,4", "up 2,2 at 3,4"}));
  });
}

TEST_F(QtTest, TypingRaisesChangeAndTheProgramsChangesShow) {
  Everything form;
  show(form, [&] {
    EXPECT_EQ(focused(), "name");
    type("ab");
    EXPECT_EQ(form.log, (Log{"name=a", "name=ab"}));
    EXPECT_EQ(form.name.selStart(), 2);
    form.name.text("other");
    form.name.select(1, 3);
    EXPECT_EQ(of<QLineEdit>(form.name).selectedText(), "the");
    type("x");
    EXPECT_EQ(form.log.back(), "name=oxr");
    EXPECT_EQ(of<QLineEdit>(form.name).cursorPosition(), 2);

    auto& notes = of<QPlainTextEdit>(form.notes);
    EXPECT_TRUE(form.focus(form.notes));
    form.notes.select(5, 3);  // behind the carriage return and line feed
    EXPECT_EQ(notes.textCursor().selectedText(), "two");
    press(Qt::Key_Return);
    type("2");
    EXPECT_EQ(form.notes.text(), "one\r\n\r\n2");
    EXPECT_EQ(form.notes.selStart(), 8);

    form.notes.locked(true);
    type("3");
    EXPECT_EQ(form.notes.text(), "one\r\n\r\n2");
  });
}

TEST_F(QtTest, AHandlerSwallowsOrReplacesCharacters) {
  Everything form;
  form.amount.text("");
  form.amount.onKeyPress = [](char32_t& key) {
    if (key == U',') key = U'.';
    if (key != U'.' && (key < U'0' || key > U'9')) key = 0;
  };
  show(form, [&] {
    form.focus(form.amount);
    type("1x,5");
    press(Qt::Key_Backspace);
    EXPECT_EQ(form.amount.text(), "1.");
  });
}

TEST_F(QtTest, ValidationKeepsTheFocus) {
  Everything form;
  show(form, [&] {
    type("bad");
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "name");
    click(form.check);
    EXPECT_FALSE(form.check.value());
    EXPECT_FALSE(of<QCheckBox>(form.check).isChecked());
    press(Qt::Key_R, Qt::AltModifier);
    EXPECT_FALSE(form.right.value());
    press(Qt::Key_Return);
    EXPECT_TRUE(form.visible());
    of<QWidget>(form.check).setFocus();  // by Qt itself
    QTest::qWait(1);
    EXPECT_EQ(focused(), "name");
    form.log.clear();
    press(Qt::Key_Escape);
    EXPECT_EQ(form.log, Log{"Cancel"});
    EXPECT_FALSE(form.visible());
  });
}

TEST_F(QtTest, AMessageWhileLeavingAFieldKeepsTheFocus) {
  Everything form;
  form.name.onValidate = [](bool& cancel) {
    messageBox("No.", Icon::critical, Buttons::ok, "Title");
    cancel = true;
  };
  show(form, [&] {
    next<QMessageBox>([](QMessageBox& box) { box.buttons().front()->click(); });
    click(form.check);
    EXPECT_EQ(focused(), "name");
    EXPECT_FALSE(form.check.value());
  });
}

TEST_F(QtTest, KeysGoThroughTheForm) {
  struct Case {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* focus;
  };
  const Case cases[] = {
      {Qt::Key_Tab, {}, "sizes"},
      {Qt::Key_Tab, {}, "typed"},
      {Qt::Key_Tab, {}, "amount"},
      {Qt::Key_Backtab, {}, "typed"},
      {Qt::Key_N, Qt::AltModifier, "name"},
      {Qt::Key_Z, Qt::AltModifier, "sizes"},
      {Qt::Key_K, Qt::AltModifier, "check"},
      {Qt::Key_Tab, {}, "notes"},
      {Qt::Key_Tab, {}, "left"},
      {Qt::Key_Down, {}, "right"},
      {Qt::Key_Down, {}, "left"},
  };
  Everything form;
  show(form, [&] {
    for (const Case& step : cases) {
      press(step.key, step.modifiers);
      EXPECT_EQ(focused(), step.focus);
    }
    EXPECT_TRUE(form.check.value());
    EXPECT_EQ(form.log, (Log{"validate ", "validate ", "checked", "right", "left"}));
    EXPECT_TRUE(of<QPushButton>(form.btnOK).isDefault());
    press(Qt::Key_Enter);
    EXPECT_EQ(form.log.back(), "OK");
    EXPECT_FALSE(form.loaded());
  });
}

TEST_F(QtTest, ValuesAreSetByMouseAndKeyboard) {
  Everything form;
  show(form, [&] {
    const QList<QToolButton*> arrows = of<QWidget>(form.spinner).findChildren<QToolButton*>();
    QTest::mouseClick(arrows[0], Qt::LeftButton);
    QTest::mouseClick(arrows[0], Qt::LeftButton);
    QTest::mouseClick(arrows[1], Qt::LeftButton);
    EXPECT_EQ(of<QLineEdit>(form.amount).text(), "1");
    EXPECT_EQ(focused(), "spinner");
    press(Qt::Key_Up);
    EXPECT_EQ(form.spinner.value(), -2);

    click(form.check, {8, of<QWidget>(form.check).height() / 2});
    EXPECT_TRUE(form.check.value());
    click(form.right, {8, of<QWidget>(form.right).height() / 2});
    press(Qt::Key_Up);
    EXPECT_TRUE(of<QRadioButton>(form.left).isChecked());
    EXPECT_FALSE(of<QRadioButton>(form.right).isChecked());

    form.focus(form.sizes);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(form.sizes.listIndex(), 1);
    form.sizes.clear();
    EXPECT_EQ(of<QComboBox>(form.sizes).count(), 0);
    EXPECT_EQ(form.log, (Log{"validate ", "checked", "right", "left", "size Small", "size Medium"}));
  });
}

TEST_F(QtTest, ListsAndTrees) {
  Everything form;
  form.list.onItemCheck = [&](int index) {
    if (index == 1) form.list.checked(0, true);
    if (index == 2) form.list.clear();
  };
  form.tree.onNodeClick = [&](const std::string& key) {
    if (key == "b") form.tree.remove("b");
  };
  show(form, [&] {
    auto& list = of<QListWidget>(form.list);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(1)).center());
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_TRUE(form.list.checked(1));
    QTest::qWait(1);
    EXPECT_EQ(list.item(0)->checkState(), Qt::Checked);
    EXPECT_EQ(form.log, (Log{"validate ", "chose 1"}));
    form.list.listIndex(-1);
    EXPECT_TRUE(list.selectedItems().empty());
    form.list.listIndex(1);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Space);
    QTest::qWait(1);
    EXPECT_EQ(list.count(), 0);

    auto& tree = of<QTreeWidget>(form.tree);
    form.focus(form.tree);
    form.tree.select("a");
    QTest::keyClick(&tree, Qt::Key_F2);
    auto* editor = tree.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, "Part");
    QTest::keyClick(editor, Qt::Key_Return);
    QTest::qWait(1);
    EXPECT_EQ(form.tree.find("a")->text, "Part");
    EXPECT_TRUE(form.visible());
    // A label may be edited from elsewhere, and stay as it is; Escape gives it up.
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
      form.focus(form.name);
      form.log.clear();
      form.tree.startLabelEdit();
      editor = tree.findChild<QLineEdit*>();
      ASSERT_NE(editor, nullptr);
      QTest::keyClick(editor, key);
      QTest::qWait(1);
      EXPECT_EQ(form.log,
                key == Qt::Key_Return ? (Log{"validate ", "edit a", "a is Part"}) : Log{"validate "});
      EXPECT_TRUE(form.visible());
    }
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::qWait(1);
    EXPECT_EQ(form.tree.find("b"), nullptr);
    EXPECT_EQ(tree.topLevelItem(0)->childCount(), 0);
    form.tree.add("", "c", "First", 0, "a");
    EXPECT_EQ(tree.topLevelItem(0)->text(0), "First");
    EXPECT_EQ(tree.topLevelItem(1)->text(0), "Part");
  });
}

TEST_F(QtTest, ClicksOnLinksAndBesideControls) {
  Everything form;
  int moves = 0;
  form.link.onMouseMove = [&] { ++moves; };
  show(form, [&] {
    click(form.link);
    QTest::mouseClick(window_, Qt::LeftButton, {}, QPoint(2, 2));
    click(form.nameLabel);
    EXPECT_EQ(form.log, (Log{"link", "background"}));
    EXPECT_EQ(of<QWidget>(form.link).cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseMove(&of<QWidget>(form.link), QPoint(3, 3));
    QTest::qWait(1);
    EXPECT_GE(moves, 1);
  });
}

TEST_F(QtTest, ClosingTheWindowIsTheFormsBusiness) {
  Everything withCancel;
  show(withCancel, [&] { window_->close(); });
  EXPECT_EQ(withCancel.log, Log{"Cancel"});

  Form stubborn("Stubborn", "Stays");
  bool refuse = true;
  stubborn.onQueryUnload = [&](bool& cancel) { cancel = std::exchange(refuse, false); };
  show(stubborn, [&] {
    window_->close();
    EXPECT_TRUE(window_->isVisible() && stubborn.visible());
    window_->close();
    EXPECT_FALSE(stubborn.loaded());
  });
}

TEST_F(QtTest, StatesFollowTheProgram) {
  Everything form;
  form.onActivate = [&] { form.topMost(true); };
  show(form, [&] {
    EXPECT_TRUE(window_->isVisible() && window_->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    form.caption("New");
    EXPECT_EQ(window_->windowTitle(), "New");
    form.check.visible(false);
    EXPECT_FALSE(of<QWidget>(form.check).isVisible());
    form.bar.value(70);
    EXPECT_EQ(of<QProgressBar>(form.bar).value(), 70);
    form.name.foreColor(rgb(128, 0, 0));
    EXPECT_EQ(of<QWidget>(form.name).palette().color(QPalette::Text), QColor(128, 0, 0));
    form.left.onClick = [&] { form.left.enabled(false); };
    press(Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(focused(), "right");
    form.timer.enabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.ticks >= 2; }, 2000));
    form.timer.enabled(false);
    const int ticks = form.ticks;
    QTest::qWait(10);
    EXPECT_EQ(form.ticks, ticks);
  });
}

TEST_F(QtTest, AFailureInAHandlerLeavesTheCallThatShowsTheForm) {
  Everything form;
  form.link.onClick = [] { base::raise(base::errors::overflow); };
  QTimer::singleShot(0, [&] {
    window_ = QApplication::activeModalWidget();
    click(form.link);
  });
  try {
    form.showModal();
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), base::errors::overflow);
  }
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(form.view(), nullptr);
}

TEST_F(QtTest, FormsWithoutWaitingAndFormsInForms) {
  Everything outer;
  {
    Everything modeless;
    modeless.showModeless();
    EXPECT_TRUE(modeless.visible());
    modeless.timer.enabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return modeless.ticks > 0; }, 2000));
    outer.link.onClick = [&] {
      Everything inner;
      show(inner, [&] { press(Qt::Key_Escape); });
      outer.log = inner.log;
    };
  }
  QTest::qWait(5);  // the timer of the form that is gone must not tick
  show(outer, [&] {
    QWidget* own = window_;
    click(outer.link);
    EXPECT_TRUE(own->isVisible());
    EXPECT_EQ(outer.log, Log{"Cancel"});
  });
}

/// Counts what comes to a widget.
class Counter : public QObject {
 public:
  explicit Counter(QEvent::Type type) : type_(type) {}
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == type_ ? 1 : 0;
    return false;
  }
  int count = 0;

 private:
  QEvent::Type type_;
};

TEST_F(QtTest, ARepaintShowsTheFormAndLetsNothingElseHappen) {
  Everything form;
  form.showModeless();
  QWidget* window = QApplication::topLevelWidgets().front();
  for (QWidget* each : QApplication::topLevelWidgets()) {
    if (each->objectName().toStdString() == form.Form::name()) window = each;
  }
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
  QWidget host;
  host.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
  auto* label = window->findChild<QWidget*>(QString::fromStdString(form.paragraph.name()));
  Counter paints(QEvent::Paint), closes(QEvent::Close);
  label->installEventFilter(&paints);
  host.installEventFilter(&closes);
  QApplication::postEvent(&host, new QCloseEvent);
  bool ticked = false;
  QTimer::singleShot(0, [&] { ticked = true; });

  form.paragraph.caption("Processing item 2 of 12");
  form.repaint();
  EXPECT_EQ(paints.count, 1);
  EXPECT_EQ(closes.count, 0);
  EXPECT_FALSE(ticked);
  QApplication::processEvents();
  EXPECT_EQ(closes.count, 1) << "it had waited";
  form.hide();
  QApplication::processEvents();
}

TEST_F(QtTest, MessageBoxes) {
  struct Case {
    Buttons buttons;
    int defaultButton;
    Qt::Key key;
    Answer answer;
  };
  const Case cases[] = {
      {Buttons::ok, 1, Qt::Key_Escape, Answer::ok},
      {Buttons::okCancel, 1, Qt::Key_Return, Answer::ok},
      {Buttons::okCancel, 2, Qt::Key_Return, Answer::cancel},
      {Buttons::yesNoCancel, 1, Qt::Key_Escape, Answer::cancel},
      {Buttons::yesNo, 2, Qt::Key_Return, Answer::no},
      {Buttons::yesNo, 1, Qt::Key_Escape, Answer::no},
      {Buttons::abortRetryIgnore, 2, Qt::Key_Return, Answer::retry},
      {Buttons::retryCancel, 9, Qt::Key_Return, Answer::cancel},
  };
  for (const Case& one : cases) {
    next<QMessageBox>([&](QMessageBox& box) {
      EXPECT_EQ(box.icon(), QMessageBox::Warning);
      EXPECT_EQ(box.text(), "<b>1\n2");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      QTest::keyClick(&box, one.key);
    });
    EXPECT_EQ(messageBox("<b>1\r\n2", Icon::exclamation, one.buttons, "T", one.defaultButton), one.answer);
  }
}

TEST_F(QtTest, InputBox) {
  const auto ask = [&](Qt::Key key) {
    next<QDialog>([key](QDialog& dialog) {
      auto* line = dialog.findChild<QLineEdit*>();
      EXPECT_EQ(line->text(), "Draft");
      QTest::keyClicks(line, "Final");
      QTest::keyClick(line, key);
    });
    return inputBox("Name & <place>", "Title", "Draft");
  };
  EXPECT_EQ(ask(Qt::Key_Return), "Final");
  EXPECT_EQ(ask(Qt::Key_Escape), std::nullopt);
}

TEST_F(QtTest, CanvasPixels) {
  Canvas canvas(20, 10);
  canvas.rectangle(0, 0, 5, 5, rgb(255, 0, 0));
  canvas.ellipse(10, 0, 10, 10, rgb(0, 0, 255));
  canvas.line(0, 8, 9, 8, rgb(0, 128, 0));
  canvas.image(0, 0, 20, 10, "no such file.png");
  const QImage image = renderCanvas(canvas);
  EXPECT_EQ(image.pixelColor(4, 4), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(5, 5).alpha(), 0);
  EXPECT_EQ(image.pixelColor(15, 5), QColor(0, 0, 255));
  EXPECT_EQ(image.pixelColor(10, 0).alpha(), 0);
  EXPECT_EQ(image.pixelColor(3, 8), QColor(0, 128, 0));
  EXPECT_EQ(image.pixelColor(3, 7).alpha(), 0);

  // Two pixels as blocks without a soft edge; a copy ends where its canvas does.
  Canvas other(30, 30);
  other.pixels(0, 0, 6, 3, 2, {rgb(255, 0, 0), rgb(0, 255, 0)});
  other.copy(10, 10, canvas);
  canvas.clear();
  const QImage blocks = renderCanvas(other);
  EXPECT_EQ(blocks.pixelColor(2, 2), QColor(255, 0, 0));
  EXPECT_EQ(blocks.pixelColor(3, 0), QColor(0, 255, 0));
  EXPECT_EQ(blocks.pixelColor(6, 0).alpha(), 0);
  EXPECT_EQ(blocks.pixelColor(14, 14), QColor(255, 0, 0));

  const QTemporaryDir folder;
  const QString file = folder.filePath("one.png");
  QImage one(1, 1, QImage::Format_RGB32);
  for (const QColor color : {QColor(1, 2, 3), QColor(4, 5, 6)}) {
    one.fill(color);
    one.save(file);
    QFile changed(file);
    EXPECT_TRUE(changed.open(QIODevice::ReadWrite) &&
                changed.setFileTime(QDateTime::currentDateTime().addSecs(color.red()),
                                    QFileDevice::FileModificationTime));
    Canvas shows(2, 2);
    shows.image(0, 0, 2, 2, file.toStdString());
    EXPECT_EQ(renderCanvas(shows).pixelColor(1, 1), color);
  }
}

}  // namespace
}  // namespace vellumark::ui
