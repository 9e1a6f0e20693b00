// A form that takes colours and clicks from the whole screen, on an X server of the test's own, with a mouse
// that the server moves.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "base/error.h"
#include "ui/form.h"
#include "ui/qt/qt_toolkit.h"
#include "ui/qt/x11_screen.h"

namespace vellumark::ui {
namespace {

/// An X server without a screen that anybody sees, until the end of the test.
class Server {
 public:
  Server() {
    int ends[2];
    if (pipe(ends) != 0) return;
    pid_ = fork();
    if (pid_ == 0) {
      dup2(ends[1], 3);
      // It goes with the test, also where that breaks off, and keeps none of its files open.
      prctl(PR_SET_PDEATHSIG, SIGTERM);
      for (std::FILE* stream : {stdout, stderr}) {
        if (std::freopen("/dev/null", "w", stream) == nullptr) _exit(1);
      }
      execlp("Xvfb", "Xvfb", "-displayfd", "3", "-screen", "0", "640x480x24", nullptr);
      _exit(1);
    }
    close(ends[1]);
    char c = 0;
    while (read(ends[0], &c, 1) == 1 && c != '\n') display_ += c;
    close(ends[0]);
  }
  ~Server() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  bool runs() const { return !display_.empty(); }
  std::string display() const { return ":" + display_; }

 private:
  pid_t pid_ = -1;
  std::string display_;
};

/// Another program with a window of one colour, that counts the clicks which reach it; and the mouse.
class OtherProgram {
 public:
  OtherProgram() {
    const std::uint32_t values[] = {0x336699, 1, XCB_EVENT_MASK_BUTTON_PRESS};
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen_->root, 400, 300, 200, 150, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen_->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(connection_, window_);
    settle();
  }
  ~OtherProgram() { xcb_disconnect(connection_); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  void move(Point to) {
    xcb_test_fake_input(connection_, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, screen_->root,
                        static_cast<std::int16_t>(to.x), static_cast<std::int16_t>(to.y), 0);
    settle();
  }
  void click(std::uint8_t button = 1) {
    for (const std::uint8_t event : {XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE}) {
      xcb_test_fake_input(connection_, event, button, XCB_CURRENT_TIME, screen_->root, 0, 0, 0);
      settle();
      QTest::qWait(30);
    }
  }
  /// The clicks since it was asked last.
  int clicks() {
    int count = 0;
    settle();
    while (xcb_generic_event_t* event = xcb_poll_for_event(connection_)) {
      count += (event->response_type & 0x7F) == XCB_BUTTON_PRESS;
      std::free(event);
    }
    return count;
  }

 private:
  void settle() {
    std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
  }

  xcb_connection_t* connection_ = xcb_connect(nullptr, nullptr);
  xcb_screen_t* screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
  xcb_window_t window_ = xcb_generate_id(connection_);
};

class X11 : public ::testing::Test {
 protected:
  void SetUp() override {
    static const Server server;
    if (!server.runs()) GTEST_SKIP() << "there is no Xvfb";
    qputenv("DISPLAY", server.display().c_str());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qunsetenv("WAYLAND_DISPLAY");
    qunsetenv("XDG_SESSION_TYPE");
    static QtToolkit toolkit;
    setToolkit(&toolkit);
    toolkit.textWidth("");  // makes Qt's application
    QApplication::processEvents();
  }
  void TearDown() override { setToolkit(nullptr); }
};

/// Takes clicks on the screen unless the cursor is over it.
struct Watcher : Form {
  Watcher() : Form("Watcher", "Watcher") {
    layout(column({Box(button)}));
    button.onClick = [this] { ++pressed; };
  }
  void watch() {
    hook = toolkit().wholeScreen()->hookMouse([this](int, std::uint32_t message) {
      if (contains(frame(), toolkit().wholeScreen()->cursor())) return MouseAnswer::passOn;
      last = message;
      return MouseAnswer::swallow;
    });
  }
  CommandButton button{*this, "button", "Press"};
  std::unique_ptr<MouseHook> hook;
  std::uint32_t last = 0;
  int pressed = 0;
};

TEST_F(X11, ColorsAreThoseOfWhateverWindowLiesThere) {
  OtherProgram other;
  Screen& screen = *toolkit().wholeScreen();
  other.move({17, 23});
  EXPECT_EQ(screen.cursor(), (Point{17, 23}));
  EXPECT_EQ(screen.size(), (Size{640, 480}));
  EXPECT_EQ(screen.pixel({450, 350}), rgb(0x33, 0x66, 0x99));
  const std::vector<Color> corner = screen.copy({399, 299, 2, 2});
  ASSERT_EQ(corner.size(), 4u);
  EXPECT_EQ(corner[3], rgb(0x33, 0x66, 0x99));
  EXPECT_NE(corner[0], corner[3]);
}

TEST_F(X11, AHookKeepsClicksFromOtherProgramsAndLeavesThoseOverItsFormAlone) {
  OtherProgram other;
  Watcher form;
  form.load();
  form.watch();
  QTimer::singleShot(300, [&] {
    other.move({450, 350});
    other.click();
    EXPECT_EQ(form.last, leftButtonDown);
    other.click(3);
    EXPECT_EQ(form.last, rightButtonDown);
    EXPECT_EQ(other.clicks(), 0);
    other.click(2);
    EXPECT_EQ(other.clicks(), 1);

    const Rect frame = form.frame();
    EXPECT_GT(frame.width, 0);
    other.move({frame.x + frame.width / 2, frame.y + frame.height / 2});
    other.click();
    EXPECT_EQ(form.pressed, 1);

    form.hook.reset();
    other.move({450, 350});
    other.click();
    EXPECT_EQ(other.clicks(), 1);
    form.unload();
  });
  form.showModal();
}

TEST_F(X11, ASecondHookIsRefusedAndTheFirstGoesOn) {
  OtherProgram other;
  Watcher first, second;
  first.watch();
  EXPECT_THROW(second.watch(), base::Error);
  other.move({450, 350});
  other.click();
  EXPECT_EQ(first.last, leftButtonDown);
  EXPECT_EQ(other.clicks(), 0);
}

}  // namespace
}  // namespace vellumark::ui
