// What the program finds in the module: a toolkit for the display, and a painter of pictures, which needs
// none.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QGuiApplication>
#include <cstdio>

#include "base/error.h"
#include "ui/qt/drawing_painter.h"
#include "ui/qt/qt_toolkit.h"
#include "ui/qt/x11_screen.h"

namespace {

/// Whether a display answers. Qt ends the process where none does, so that a child process tries first.
bool displayOpens() {
  const pid_t child = fork();
  if (child < 0) return false;
  if (child == 0) {
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    if (std::freopen("/dev/null", "w", stderr) == nullptr) _exit(1);
    int count = 1;
    char name[] = "vellumark";
    char* arguments[] = {name, nullptr};
    const QGuiApplication application(count, arguments);
    _exit(0);
  }
  int status = 0;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

/// The toolkit, which lives as long as the process; base::Error 5 where there is no display.
extern "C" vellumark::ui::Toolkit* vellumark_create_qt_toolkit() {
  if (!QGuiApplication::instance() && !displayOpens()) {
    vellumark::base::raise(vellumark::base::errors::invalidCall, "The display can't be opened");
  }
  static vellumark::ui::QtToolkit toolkit;
  return &toolkit;
}

/// The whole screen for a program that shows nothing on it; nullptr where none can be seen. The caller owns
/// it.
extern "C" vellumark::ui::Screen* vellumark_open_screen() {
  return vellumark::ui::qt::X11Screen::open().release();
}

/// The PngPainter.
extern "C" bool vellumark_paint_png(const vellumark::platform::Drawing& drawing,
                                    const vellumark::ui::PngFile& file) {
  return vellumark::ui::qt::paintPng(drawing, file);
}
