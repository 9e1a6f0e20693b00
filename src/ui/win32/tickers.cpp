#include "ui/win32/tickers.h"

#include "ui/form.h"
#include "ui/win32/event_loops.h"
#include "ui/win32/resources.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {

Tickers::Tickers(EventLoops& loops, const Resources& resources)
    : loops_(loops),
      window_(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, resources.instance(),
                              nullptr)) {
  SetWindowSubclass(window_, procedure, 0, reinterpret_cast<DWORD_PTR>(this));
}

Tickers::~Tickers() {
  RemoveWindowSubclass(window_, procedure, 0);
  DestroyWindow(window_);
}

void Tickers::start(Timer& timer) {
  timers_.insert(&timer);
  SetTimer(window_, reinterpret_cast<UINT_PTR>(&timer), static_cast<UINT>(timer.interval()), nullptr);
}

void Tickers::stop(Timer& timer) {
  if (timers_.erase(&timer) != 0) KillTimer(window_, reinterpret_cast<UINT_PTR>(&timer));
}

LRESULT CALLBACK Tickers::procedure(HWND window, UINT code, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                    DWORD_PTR data) {
  if (code != WM_TIMER) return DefSubclassProc(window, code, wParam, lParam);
  reinterpret_cast<Tickers*>(data)->ticked(reinterpret_cast<Timer*>(wParam));
  return 0;
}

/// A message may still wait when its timer has gone.
void Tickers::ticked(Timer* timer) {
  if (!timers_.contains(timer)) return;
  const auto tick = [timer] { timer->tick(); };
  if (FormView* view = timer->form().view()) {
    view->perform(tick);
  } else {
    loops_.perform(tick, false);
  }
}

}  // namespace vellumark::ui::win32
