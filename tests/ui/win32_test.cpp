#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/error.h"
#include "platform/paths.h"
#include "ui/everything_form.h"
#include "ui/keys.h"
#include "ui/message_pump.h"
#include "ui/pages_form.h"
#include "ui/win32/conversions.h"
#include "ui/win32/system.h"
#include "ui/win32/win32_toolkit.h"

namespace vellumark::ui::win32 {
namespace {

/// What the user does next, run by a timer of the thread within whatever loop then waits.
std::vector<std::function<void()>> nextActs;

void CALLBACK actNow(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  const auto act = std::move(nextActs.back());
  nextActs.pop_back();
  act();
}

void later(std::function<void()> act) {
  nextActs.push_back(std::move(act));
  SetTimer(nullptr, 0, 30, actNow);
}

std::string nameOf(HWND form, HWND window) {
  wchar_t name[64] = {};
  SendMessageW(form, RegisterWindowMessageW(L"VellumarkControlName"), reinterpret_cast<WPARAM>(window),
               reinterpret_cast<LPARAM>(name));
  return fromWide(name);
}

BOOL CALLBACK collectForms(HWND window, LPARAM forms) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  if (std::wstring(name) == FormClass::name) reinterpret_cast<std::vector<HWND>*>(forms)->push_back(window);
  return TRUE;
}

std::vector<HWND> formWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), collectForms, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

/// The message box that is open, by its title.
HWND boxOf(const wchar_t* title) { return FindWindowW(L"#32770", title); }

class Win32Test : public ::testing::Test {
 protected:
  Win32Test() : before_(setToolkit(&toolkit_)) {
    host_ = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 60, 700, 560,
                            nullptr, nullptr, nullptr, nullptr);
    SetActiveWindow(host_);
    pump();
  }
  ~Win32Test() override {
    setToolkit(before_);
    DestroyWindow(host_);
  }

  /// Shows the form, lets `user` work with its window, and closes it where the user didn't.
  void show(Form& form, const std::function<void()>& user) {
    later([&] {
      HWND before = window_;
      window_ = GetActiveWindow();
      EXPECT_EQ(nameOf(window_, nullptr), form.name());
      user();
      window_ = before;
      form.hide();
    });
    form.showModal();
  }

  HWND of(const Control& control) const {
    HWND found = nullptr;
    for (HWND child = GetWindow(window_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
      if (nameOf(window_, child) == control.name()) found = child;
    }
    return found;
  }
  LRESULT send(const Control& control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(of(control), message, wParam, lParam);
  }
  void notify(const Control& control, int code) const {
    SendMessageW(window_, WM_COMMAND, MAKEWPARAM(0, code), reinterpret_cast<LPARAM>(of(control)));
  }

  void press(WPARAM key, bool shift = false) {
    BYTE keys[256] = {};
    keys[VK_SHIFT] = shift ? 0x80 : 0;
    SetKeyboardState(keys);
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
    pump();
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
  }
  void access(char key) {
    PostMessageW(GetFocus(), WM_SYSCHAR, static_cast<WPARAM>(key), 1 << 29);
    pump();
  }
  void type(const std::string& text) {
    for (const char each : text) PostMessageW(GetFocus(), WM_CHAR, static_cast<WPARAM>(each), 1);
    pump();
  }
  void click(const Control& control, int x = 4, int y = 4) {
    PostMessageW(of(control), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(of(control), WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    pump();
  }
  void wait(const std::function<bool()>& done) {
    for (int i = 0; i < 200 && !done(); ++i) {
      Sleep(5);
      pump();
    }
  }
  std::string focused() const {
    HWND focus = GetFocus();
    const std::string name = nameOf(window_, focus);
    return name.empty() ? nameOf(window_, GetParent(focus)) : name;
  }

  Win32Toolkit toolkit_;
  Toolkit* before_;
  HWND host_ = nullptr;
  HWND window_ = nullptr;
};

/// Where VELLUMARK_LOOK is set, forms stay that many milliseconds for somebody to look at.
void look(const std::function<void()>& pump) {
  wchar_t wanted[16] = {};
  if (GetEnvironmentVariableW(L"VELLUMARK_LOOK", wanted, 16) == 0) return;
  for (int left = std::stoi(wanted); left > 0; left -= 20) {
    Sleep(20);
    pump();
  }
}

TEST_F(Win32Test, PagesComeToTheFront) {
  PagesForm form;
  form.marks.image(0, platform::fromSystem(TEST_SOURCE_DIR "/product/program/ui/zp_1032_16.png"));
  show(form, [&] {
    look([&] { pump(); });
    const auto seen = [&](const Control& control) {
      RECT area = {};
      GetWindowRect(of(control), &area);
      return area.right > area.left;
    };
    EXPECT_TRUE(seen(form.text) && seen(form.page[0]));
    EXPECT_FALSE(seen(form.marks) || seen(form.page[1]));
    EXPECT_EQ(send(form.answer, CB_GETDROPPEDWIDTH), 333);
    EXPECT_EQ(focused(), "text");
    click(form.second);
    wait([&] { return seen(form.marks); });
    EXPECT_FALSE(seen(form.text) || seen(form.page[0]));
    EXPECT_TRUE(seen(form.marks) && seen(form.page[1]));
    EXPECT_EQ(focused(), "marks") << "the focus leaves what is covered";
    const auto pictureOf = [&](int row) {
      LVITEMW item = {};
      item.mask = LVIF_IMAGE;
      item.iItem = row;
      send(form.marks, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
      return item.iImage;
    };
    EXPECT_EQ(pictureOf(0), 0);
    EXPECT_EQ(pictureOf(1), I_IMAGENONE);
    look([&] { pump(); });
  });
}

TEST_F(Win32Test, CutsNothing) {
  Everything form;
  show(form, [&] {
    RECT area = {};
    GetClientRect(window_, &area);
    std::vector<std::pair<std::string, RECT>> places;
    for (const Control* control : form.controls()) {
      HWND window = of(*control);
      if (dynamic_cast<const Timer*>(control)) continue;
      ASSERT_TRUE(window && (IsWindowVisible(window) != FALSE) == control->visible()) << control->name();
      RECT place = {};
      GetWindowRect(window, &place);
      MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
      EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= area.right &&
                  place.bottom <= area.bottom)
          << control->name();
      if (control == &form.frame || control == &form.board) continue;
      for (const auto& [name, other] : places) {
        RECT common = {};
        EXPECT_FALSE(IntersectRect(&common, &place, &other)) << control->name() << " lies on " << name;
      }
      places.emplace_back(control->name(), place);
    }
    look([this] { pump(); });
    SetWindowPos(window_, nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
    RECT smallest = {};
    GetClientRect(window_, &smallest);
    EXPECT_EQ(smallest.right, area.right);
    form.check.caption(
        "A caption that has become too long for the place that it had at first, by far and far more");
    pump();
    GetClientRect(window_, &smallest);
    EXPECT_GT(smallest.right, area.right);
  });
}

TEST_F(Win32Test, TypingRaisesChangeAndTheProgramsChangesShow) {
  Everything form;
  form.amount.onKeyPress = [](char32_t& key) {
    if (key == U',') key = U'.';
    if (key != U'.' && (key < U'0' || key > U'9')) key = 0;
  };
  show(form, [&] {
    EXPECT_EQ(focused(), "name");
    type("ab");
    EXPECT_EQ(form.log, (Log{"name=a", "name=ab"}));
    EXPECT_EQ(form.name.selStart(), 2);
    form.name.text("other");
    form.name.select(1, 3);
    type("x");
    EXPECT_EQ(form.log.back(), "name=oxr");
    SetWindowTextW(of(form.name), L"\u00e4");
    EXPECT_EQ(form.log.back(), "name=\xc3\xa4");

    form.focus(form.notes);
    form.notes.select(5, 3);  // behind the carriage return and line feed
    type("\r2");
    EXPECT_EQ(form.notes.text(), "one\r\n\r\n2");
    SetWindowTextW(of(form.notes), L"x\r\ny");
    EXPECT_EQ(form.notes.text(), "x\r\ny");
    form.notes.locked(true);
    type("3");
    EXPECT_EQ(form.notes.text(), "x\r\ny");

    form.amount.text("");
    form.focus(form.amount);
    type("1x,5\b");
    EXPECT_EQ(form.amount.text(), "1.");
  });
}

TEST_F(Win32Test, ValidationKeepsTheFocus) {
  Everything form;
  show(form, [&] {
    type("bad");
    press(VK_TAB);
    EXPECT_EQ(focused(), "name");
    click(form.check);
    EXPECT_FALSE(form.check.value() || send(form.check, BM_GETCHECK));
    access('r');
    EXPECT_FALSE(form.right.value());
    press(VK_RETURN);
    EXPECT_TRUE(form.visible());
    SetFocus(of(form.check));  // by the system itself
    pump();
    EXPECT_EQ(focused(), "name");
    form.log.clear();
    press(VK_ESCAPE);
    EXPECT_EQ(form.log, Log{"Cancel"});
    EXPECT_FALSE(form.visible());
  });
}

TEST_F(Win32Test, AMessageWhileLeavingAFieldKeepsTheFocus) {
  Everything form;
  form.name.onValidate = [](bool& cancel) {
    messageBox("No.", Icon::critical, Buttons::ok, "Refusal");
    cancel = true;
  };
  show(form, [&] {
    later([&] {
      EXPECT_FALSE(IsWindowEnabled(window_));
      PostMessageW(boxOf(L"Refusal"), WM_COMMAND, IDOK, 0);
    });
    click(form.check);
    EXPECT_EQ(focused(), "name");
    EXPECT_FALSE(form.check.value());
    EXPECT_TRUE(IsWindowEnabled(window_));
    EXPECT_FALSE(IsWindowEnabled(host_));
  });
}

TEST_F(Win32Test, KeysGoThroughTheForm) {
  struct Case {
    WPARAM key;
    bool shift;
    char access;
    const char* focus;
  };
  const Case cases[] = {
      {VK_TAB, false, 0, "sizes"},  {VK_TAB, false, 0, "typed"}, {VK_TAB, false, 0, "amount"},
      {VK_TAB, true, 0, "typed"},   {0, false, 'n', "name"},     {0, false, 'z', "sizes"},
      {0, false, 'K', "check"},     {VK_TAB, false, 0, "notes"}, {VK_TAB, false, 0, "left"},
      {VK_DOWN, false, 0, "right"}, {VK_DOWN, false, 0, "left"},
  };
  Everything form;
  show(form, [&] {
    for (const Case& step : cases) {
      if (step.access) {
        access(step.access);
      } else {
        press(step.key, step.shift);
      }
      EXPECT_EQ(focused(), step.focus);
    }
    EXPECT_TRUE(form.check.value());
    EXPECT_EQ(form.log, (Log{"validate ", "validate ", "checked", "right", "left"}));
    press(VK_RETURN);
    EXPECT_EQ(form.log.back(), "OK");
    EXPECT_FALSE(form.loaded());
  });
}

TEST_F(Win32Test, ValuesAreSetByMouseAndKeyboard) {
  Everything form;
  show(form, [&] {
    click(form.spinner);
    click(form.spinner);
    RECT area = {};
    GetClientRect(of(form.spinner), &area);
    click(form.spinner, 4, static_cast<int>(area.bottom) - 4);
    EXPECT_EQ(textOf(of(form.amount)), L"1");
    EXPECT_EQ(focused(), "spinner");
    press(VK_UP);
    EXPECT_EQ(form.spinner.value(), -2);

    send(form.check, BM_CLICK);
    EXPECT_TRUE(form.check.value() && send(form.check, BM_GETCHECK) == BST_CHECKED);
    send(form.right, BM_CLICK);
    press(VK_UP);
    EXPECT_TRUE(send(form.left, BM_GETCHECK) == BST_CHECKED &&
                send(form.right, BM_GETCHECK) == BST_UNCHECKED);

    form.focus(form.sizes);
    press(VK_DOWN);
    press(VK_DOWN);
    EXPECT_EQ(form.sizes.listIndex(), 1);
    send(form.sizes, CB_SETCURSEL, 2);
    notify(form.sizes, CBN_SELCHANGE);
    form.sizes.clear();
    EXPECT_EQ(send(form.sizes, CB_GETCOUNT), 0);
    EXPECT_EQ(form.log,
              (Log{"validate ", "checked", "right", "left", "size Small", "size Medium", "size Large"}));

    form.log.clear();
    form.focus(form.typed);
    type("Huge");
    EXPECT_EQ(form.typed.text(), "Huge");
    EXPECT_EQ(form.log.size(), 4U);
    form.typed.text("Large");
    EXPECT_EQ(textOf(of(form.typed)), L"Large");
    EXPECT_EQ(send(form.typed, CB_GETCURSEL), 2);
  });
}

TEST_F(Win32Test, ListsAndTrees) {
  Everything form;
  form.list.onItemCheck = [&](int index) {
    if (index == 1) form.list.checked(0, true);
    if (index == 2) form.list.clear();
  };
  form.tree.onNodeClick = [&](const std::string& key) {
    if (key == "b") form.tree.remove("b");
  };
  show(form, [&] {
    const auto mark = [&](std::size_t row) {
      LVITEMW item = {};
      item.stateMask = LVIS_STATEIMAGEMASK;
      item.state = INDEXTOSTATEIMAGEMASK(2);
      send(form.list, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
      pump();
    };
    mark(1);
    EXPECT_TRUE(form.list.checked(1));
    EXPECT_EQ(send(form.list, LVM_GETITEMSTATE, 0, LVIS_STATEIMAGEMASK), INDEXTOSTATEIMAGEMASK(2));
    click(form.list, 40, 4);
    EXPECT_EQ(form.list.listIndex(), 0);
    EXPECT_EQ(form.log, (Log{"validate ", "chose 0"}));
    form.list.listIndex(-1);
    EXPECT_EQ(send(form.list, LVM_GETSELECTEDCOUNT), 0);
    mark(2);
    EXPECT_EQ(send(form.list, LVM_GETITEMCOUNT), 0);

    click(form.plain);
    EXPECT_EQ(form.plain.listIndex(), 0);
    press(VK_DOWN);
    EXPECT_EQ(form.plain.listIndex(), 1);

    form.focus(form.tree);
    form.tree.select("a");
    form.log.clear();
    press(VK_F2);
    HWND editor = reinterpret_cast<HWND>(send(form.tree, TVM_GETEDITCONTROL));
    ASSERT_NE(editor, nullptr);
    SetWindowTextW(editor, L"Part");
    press(VK_RETURN);
    EXPECT_EQ(form.tree.find("a")->text, "Part");
    EXPECT_EQ(form.log, (Log{"edit a", "a is Part"}));
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(focused(), "tree");
    // Another control has the label edited, which may stay as it is; Escape gives it up.
    form.check.onClick = [&] { form.tree.startLabelEdit(); };
    for (const auto key : {VK_RETURN, VK_ESCAPE}) {
      form.log.clear();
      click(form.check);
      ASSERT_NE(send(form.tree, TVM_GETEDITCONTROL), 0);
      press(key);
      EXPECT_EQ(form.log, key == VK_RETURN ? (Log{"edit a", "a is Part"}) : Log{});
      EXPECT_TRUE(form.visible());
      EXPECT_EQ(focused(), "tree");
    }
    press(VK_DOWN);
    EXPECT_EQ(form.tree.find("b"), nullptr);
    EXPECT_EQ(send(form.tree, TVM_GETCOUNT), 1);
    form.tree.add("", "c", "First", 0, "a");
    wchar_t text[64] = {};
    TVITEMW item = {};
    item.mask = TVIF_TEXT;
    item.hItem = reinterpret_cast<HTREEITEM>(send(form.tree, TVM_GETNEXTITEM, TVGN_ROOT));
    item.pszText = text;
    item.cchTextMax = 64;
    send(form.tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(std::wstring(text), L"First");
  });
}

TEST_F(Win32Test, ClicksOnLinksAndBesideControls) {
  Everything form;
  int moves = 0;
  form.link.onMouseMove = [&] { ++moves; };
  show(form, [&] {
    click(form.link);
    PostMessageW(window_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
    click(form.nameLabel);
    EXPECT_EQ(form.log, (Log{"link", "background"}));
    SendMessageW(of(form.link), WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
    EXPECT_EQ(moves, 1);
  });
}

TEST_F(Win32Test, ClosingTheWindowIsTheFormsBusiness) {
  Everything withCancel;
  show(withCancel, [&] { SendMessageW(window_, WM_CLOSE, 0, 0); });
  EXPECT_EQ(withCancel.log, Log{"Cancel"});

  Form stubborn("Stubborn", "Stays");
  bool refuse = true;
  stubborn.onQueryUnload = [&](bool& cancel) { cancel = std::exchange(refuse, false); };
  show(stubborn, [&] {
    SendMessageW(window_, WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindowVisible(window_) && stubborn.visible());
    SendMessageW(window_, WM_CLOSE, 0, 0);
    EXPECT_FALSE(stubborn.loaded());
  });
}

TEST_F(Win32Test, StatesFollowTheProgram) {
  Everything form;
  show(form, [&] {
    form.caption("New");
    EXPECT_EQ(textOf(window_), L"New");
    form.check.visible(false);
    EXPECT_FALSE(IsWindowVisible(of(form.check)));
    form.bar.value(70);
    EXPECT_EQ(send(form.bar, PBM_GETPOS), 70);
    form.left.onClick = [&] { form.left.enabled(false); };
    access('l');
    EXPECT_EQ(focused(), "right");
    form.timer.enabled(true);
    wait([&] { return form.ticks >= 2; });
    EXPECT_GE(form.ticks, 2);
    form.timer.enabled(false);
    const int ticks = form.ticks;
    Sleep(30);
    pump();
    EXPECT_EQ(form.ticks, ticks);
  });

  Form above("Above", "Above all");
  above.onActivate = [&] { above.topMost(true); };
  show(above, [&] { EXPECT_TRUE(GetWindowLongW(window_, GWL_EXSTYLE) & WS_EX_TOPMOST); });
}

TEST_F(Win32Test, AFailureInAHandlerLeavesTheCallThatShowsTheForm) {
  Everything form;
  form.link.onClick = [] { base::raise(base::errors::overflow); };
  later([&] {
    window_ = GetActiveWindow();
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP}) SendMessageW(of(form.link), message, 0, 0);
  });
  try {
    form.showModal();
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), base::errors::overflow);
  }
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(form.view(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(host_));
}

TEST_F(Win32Test, ModalFormsDisableTheirOwnersAndGiveTheFrontBack) {
  Everything outer;
  outer.link.onClick = [&] {
    HWND own = window_;
    Everything inner;
    show(inner, [&] {
      EXPECT_FALSE(IsWindowEnabled(own));
      press(VK_ESCAPE);
    });
    EXPECT_EQ(GetActiveWindow(), own);
    outer.log = inner.log;
  };
  show(outer, [&] {
    EXPECT_FALSE(IsWindowEnabled(host_));
    click(outer.link);
    EXPECT_EQ(outer.log, Log{"Cancel"});
    EXPECT_EQ(focused(), "name");
  });
  EXPECT_TRUE(IsWindowEnabled(host_));
  EXPECT_EQ(GetActiveWindow(), host_);
  EXPECT_TRUE(formWindows().empty());
}

TEST_F(Win32Test, FormsWithoutWaitingLiveOnTheHostsLoop) {
  {
    Everything form;
    form.showModeless();
    window_ = formWindows().at(0);
    EXPECT_TRUE(IsWindowEnabled(host_));
    press(VK_TAB);
    access('k');
    EXPECT_TRUE(form.check.value());
    form.link.onClick = [] { base::raise(base::errors::overflow); };
    click(form.link);  // nobody waits for this failure
    EXPECT_TRUE(form.visible());
    form.timer.enabled(true);
    wait([&] { return form.ticks > 0; });
    EXPECT_GT(form.ticks, 0);
  }
  pump();  // the timer of the form that is gone must not tick
  {
    Everything hidden;
    hidden.load();
    hidden.timer.enabled(true);
    wait([&] { return hidden.ticks > 0; });
    EXPECT_GT(hidden.ticks, 0) << "a form that is never shown";
    EXPECT_FALSE(hidden.visible());
    hidden.unload();
    const int before = hidden.ticks;
    Sleep(30);
    pump();
    EXPECT_EQ(hidden.ticks, before);
  }
  EXPECT_TRUE(formWindows().empty());

  Everything closes;
  closes.btnOK.onClick = [&] {
    closes.unload();
    later([] { PostMessageW(boxOf(L"Bye"), WM_COMMAND, IDOK, 0); });
    messageBox("Still within the handler", Icon::none, Buttons::ok, "Bye");
  };
  closes.showModeless();
  window_ = formWindows().at(0);
  click(closes.btnOK);
  EXPECT_FALSE(closes.visible());
  EXPECT_TRUE(formWindows().empty());
}

TEST_F(Win32Test, AFormClosesByItsOwnTimer) {
  Passing form;
  form.showModeless();
  EXPECT_EQ(GetWindowLongW(formWindows().at(0), GWL_STYLE) & WS_DLGFRAME, 0);
  // What comes up now may stay longer than the form does.
  HWND owner = nullptr;
  form.timer.onTimer = [&, tick = form.timer.onTimer] {
    tick();
    HWND box = boxOf(L"T");
    if (!form.gone || !box) return;
    owner = GetWindow(box, GW_OWNER);
    PostMessageW(box, WM_COMMAND, IDOK, 0);
  };
  EXPECT_EQ(messageBox("text", Icon::none, Buttons::ok, "T"), Answer::ok);
  EXPECT_EQ(owner, host_);
  EXPECT_TRUE(form.gone && !form.loaded());
  pump();
  EXPECT_TRUE(formWindows().empty());
  form.gone = false;
  form.ticks = 0;
  form.showModal();
  EXPECT_TRUE(form.gone);
}

TEST_F(Win32Test, TheFormSeesKeysFirst) {
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
    press(VK_TAB, true);
    EXPECT_EQ(form.log, (Log{"name=a", "name=ab", "key 9,1"}));
    press(VK_F1);
    EXPECT_FALSE(form.loaded());
  });

  Form empty("Empty", "Nothing takes the focus");
  Label label(empty, "label", "Text");
  empty.layout(column({Box(label)}));
  std::string typed;
  empty.onKeyPress = [&](char32_t& key) { typed += static_cast<char>(key); };
  show(empty, [&] { type("ab"); });
  EXPECT_EQ(typed, "ab");
}

TEST_F(Win32Test, PicturesTellWhereTheMouseIs) {
  Everything form;
  show(form, [&] {
    form.board.visible(true);
    pump();
    RECT area = {};
    GetClientRect(of(form.board), &area);
    const double scale = area.right / 60.0;
    click(form.board, static_cast<int>(59 * scale), static_cast<int>(39 * scale));
    send(form.board, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3 * scale, 4 * scale));
    send(form.board, WM_MOUSEMOVE, 0, MAKELPARAM(5 * scale, 6 * scale));
    EXPECT_EQ(form.log,
              (Log{"down 1,0 at 59,39", "up 1,0 at 59,39", "board", "down 2,0 at 3,4", "move 0,0 at 5,6"}));
    POINT inside = {5, 5};
    ClientToScreen(of(form.board), &inside);
    ScreenToClient(window_, &inside);
    EXPECT_EQ(ChildWindowFromPointEx(window_, inside, CWP_SKIPINVISIBLE), of(form.board))
        << "lies on the other";
  });
}

TEST_F(Win32Test, ARepaintShowsTheFormAndLetsNothingElseHappen) {
  Everything form;
  form.showModeless();
  window_ = formWindows().front();
  pump();
  PostMessageW(host_, WM_CLOSE, 0, 0);
  InvalidateRect(of(form.paragraph), nullptr, TRUE);
  EXPECT_TRUE(GetUpdateRect(of(form.paragraph), nullptr, FALSE)) << "it waits to be painted";
  form.repaint();
  EXPECT_FALSE(GetUpdateRect(of(form.paragraph), nullptr, FALSE));
  MSG message = {};
  EXPECT_TRUE(PeekMessageW(&message, host_, WM_CLOSE, WM_CLOSE, PM_REMOVE)) << "it waits on";
  form.hide();
  pump();
}

/// What a window gets that comes to a screen of twice the resolution.
TEST_F(Win32Test, AnotherResolutionMakesTheFormLarger) {
  Everything form;
  show(form, [&] {
    const auto fontHeight = [&] {
      LOGFONTW font = {};
      GetObjectW(reinterpret_cast<HFONT>(send(form.paragraph, WM_GETFONT)), sizeof font, &font);
      return font.lfHeight;
    };
    const auto size = [&] {
      RECT area = {};
      GetClientRect(window_, &area);
      return std::pair(area.right, area.bottom);
    };
    const auto tell = [&](int dpi) {
      RECT proposed = {10, 20, 700, 500};
      SendMessageW(window_, 0x02E0, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&proposed));
    };
    const HDC screen = GetDC(nullptr);
    const int own = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    const LONG height = fontHeight();
    const auto [width, depth] = size();
    tell(2 * own);
    EXPECT_EQ(fontHeight(), 2 * height);
    EXPECT_NEAR(static_cast<double>(size().first) / width, 2, 0.3);
    EXPECT_NEAR(static_cast<double>(size().second) / depth, 2, 0.3);
    RECT place = {};
    GetWindowRect(window_, &place);
    EXPECT_EQ(place.left, 10);
    EXPECT_EQ(place.top, 20);
    tell(own);
    EXPECT_EQ(fontHeight(), height);
    EXPECT_EQ(size(), std::pair(width, depth)) << "and back";
  });
}

TEST_F(Win32Test, MessageBoxes) {
  struct Case {
    Buttons buttons;
    int defaultButton;
    int defaultId;
    bool closes;
    Answer answer;
  };
  const Case cases[] = {
      {Buttons::ok, 1, IDOK, true, Answer::ok},
      {Buttons::okCancel, 2, IDCANCEL, false, Answer::cancel},
      {Buttons::yesNoCancel, 1, IDYES, true, Answer::cancel},
      {Buttons::yesNo, 2, IDNO, false, Answer::no},
      {Buttons::abortRetryIgnore, 2, IDRETRY, false, Answer::retry},
      {Buttons::retryCancel, 9, IDCANCEL, false, Answer::cancel},
  };
  for (const Case& one : cases) {
    later([&] {
      HWND box = boxOf(L"T");
      if (one.defaultId != IDOK) {
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), one.defaultId);
      }
      EXPECT_EQ(GetWindow(box, GW_OWNER), host_);
      EXPECT_FALSE(IsWindowEnabled(host_));
      PostMessageW(box, one.closes ? UINT{WM_CLOSE} : UINT{WM_COMMAND}, static_cast<WPARAM>(one.defaultId),
                   0);
    });
    EXPECT_EQ(messageBox("1\r\n2", Icon::exclamation, one.buttons, "T", one.defaultButton), one.answer);
  }
}

TEST_F(Win32Test, InputBox) {
  const auto ask = [&](WPARAM key) {
    later([this, key] {
      type("Final");
      press(key);
    });
    return inputBox("Name & <place>", "Title", "Draft");
  };
  EXPECT_EQ(ask(VK_RETURN), "Final");
  EXPECT_EQ(ask(VK_ESCAPE), std::nullopt);
}

TEST(Win32ToolkitTest, LeavesNothingBehind) {
  Everything form;
  for (int i = 0; i < 2; ++i) {
    Toolkit* before = nullptr;
    {
      Win32Toolkit toolkit;
      before = setToolkit(&toolkit);
      WNDCLASSEXW known = {};
      known.cbSize = sizeof known;
      EXPECT_TRUE(GetClassInfoExW(GetModuleHandleW(nullptr), FormClass::name, &known));
      form.showModeless();
      EXPECT_EQ(formWindows().size(), 1U);
    }
    setToolkit(before);
    form.hide();
    EXPECT_TRUE(formWindows().empty());
    WNDCLASSEXW known = {};
    known.cbSize = sizeof known;
    EXPECT_FALSE(GetClassInfoExW(GetModuleHandleW(nullptr), FormClass::name, &known));
  }
}

/// A window of one colour that counts the clicks which reach it; and the mouse.
class OtherWindow {
 public:
  OtherWindow() {
    clicks_ = 0;
    WNDCLASSW kind = {};
    kind.lpfnWndProc = [](HWND window, UINT code, WPARAM wParam, LPARAM lParam) -> LRESULT {
      clicks_ += code == WM_LBUTTONDOWN || code == WM_RBUTTONDOWN;
      return DefWindowProcW(window, code, wParam, lParam);
    };
    kind.hbrBackground = brush_;
    kind.lpszClassName = name;
    RegisterClassW(&kind);
    window_ = CreateWindowExW(WS_EX_TOPMOST, name, L"", WS_POPUP | WS_VISIBLE, 400, 300, 200, 150, nullptr,
                              nullptr, nullptr, nullptr);
    UpdateWindow(window_);
  }
  ~OtherWindow() {
    DestroyWindow(window_);
    UnregisterClassW(name, nullptr);
    DeleteObject(brush_);
  }
  OtherWindow(const OtherWindow&) = delete;
  OtherWindow& operator=(const OtherWindow&) = delete;

  /// Clicks at a place of the screen; the clicks that the window got of it.
  static int click(Point place, DWORD down = MOUSEEVENTF_LEFTDOWN, DWORD up = MOUSEEVENTF_LEFTUP) {
    clicks_ = 0;
    SetCursorPos(place.x, place.y);
    for (const DWORD event : {down, up}) {
      INPUT input = {};
      input.type = INPUT_MOUSE;
      input.mi.dwFlags = event;
      SendInput(1, &input, sizeof input);
      wait();
    }
    return clicks_;
  }
  static void wait() {
    for (int i = 0; i < 10; ++i) {
      pump();
      Sleep(10);
    }
  }

 private:
  static constexpr const wchar_t* name = L"VellumarkOther";
  static inline int clicks_ = 0;
  HBRUSH brush_ = CreateSolidBrush(rgb(0x33, 0x66, 0x99));
  HWND window_ = nullptr;
};

TEST_F(Win32Test, AHookKeepsClicksFromOtherWindowsAndTheScreenTellsTheirColors) {
  const OtherWindow other;
  OtherWindow::wait();
  Screen& screen = *toolkit_.wholeScreen();
  const Point place{450, 350};
  EXPECT_EQ(screen.pixel(place), rgb(0x33, 0x66, 0x99));
  EXPECT_EQ(screen.copy({place.x, place.y, 2, 3}), std::vector<Color>(6, rgb(0x33, 0x66, 0x99)));
  EXPECT_EQ(screen.size(), (Size{GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}));
  EXPECT_EQ(OtherWindow::click(place), 1);
  EXPECT_EQ(screen.cursor(), place);

  std::vector<std::uint32_t> seen;
  MouseAnswer answer = MouseAnswer::swallow;
  auto hook = screen.hookMouse([&](int, std::uint32_t message) {
    if (message != leftButtonDown && message != rightButtonDown) return MouseAnswer::passOn;
    seen.push_back(message);
    return answer;
  });
  EXPECT_EQ(OtherWindow::click(place), 0);
  EXPECT_EQ(OtherWindow::click(place, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP), 0);
  EXPECT_EQ(seen, (std::vector{leftButtonDown, rightButtonDown}));
  answer = MouseAnswer::passOn;
  EXPECT_EQ(OtherWindow::click(place), 1);
  hook.reset();
  EXPECT_EQ(OtherWindow::click(place), 1);
  EXPECT_EQ(seen.size(), 3u);
}

}  // namespace
}  // namespace vellumark::ui::win32
