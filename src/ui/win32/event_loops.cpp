#include "ui/win32/event_loops.h"

#include <windows.h>

#include <utility>

namespace vellumark::ui::win32 {

void EventLoops::perform(const std::function<void()>& act, bool keep) noexcept {
  try {
    act();
  } catch (...) {
    caught(keep);
  }
}

/// What fails after the first failure is its consequence.
void EventLoops::caught(bool keep) noexcept {
  if (keep && !failure_) failure_ = std::current_exception();
  wake();
}

void EventLoops::run(const std::function<bool()>& goesOn) {
  MSG message = {};
  while (!failure_ && goesOn()) {
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
    if (got <= 0) break;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  rethrow();
}

void EventLoops::rethrow() {
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void EventLoops::wake() { PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0); }

}  // namespace vellumark::ui::win32
