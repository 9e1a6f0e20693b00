#include "tools/mouse_hook.h"

#include <memory>

#include "core/failure.h"

namespace vellumark::tools::mouseHook {

bool cursorInDialog = false;
bool colorClicked = false;

namespace {

std::unique_ptr<ui::MouseHook> hook;

}  // namespace

ui::MouseAnswer MouseProc(int code, std::uint32_t message) {
  ui::MouseAnswer answer = ui::MouseAnswer::passOn;
  core::trap("mouseHook, MouseProc", [&] {
    if (code < 0 || cursorInDialog) return;
    if (code != 0) {
      answer = ui::MouseAnswer::drop;
    } else if (message == ui::leftButtonDown || message == ui::rightButtonDown) {
      colorClicked = true;
      answer = ui::MouseAnswer::swallow;
    }
  });
  return answer;
}

void install(ui::Screen& screen) {
  remove();
  cursorInDialog = false;
  colorClicked = false;
  hook = screen.hookMouse(MouseProc);
}

void remove() { hook.reset(); }

}  // namespace vellumark::tools::mouseHook
