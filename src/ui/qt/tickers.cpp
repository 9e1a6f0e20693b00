#include "ui/qt/tickers.h"

#include <QTimerEvent>
#include <algorithm>

#include "ui/form.h"
#include "ui/qt/event_loops.h"

namespace vellumark::ui::qt {

void Tickers::start(Timer& timer) { timers_.emplace(startTimer(timer.interval(), Qt::PreciseTimer), &timer); }

void Tickers::stop(const Timer& timer) {
  const auto found = std::ranges::find(timers_, &timer, &std::pair<const int, Timer*>::second);
  if (found == timers_.end()) return;
  killTimer(found->first);
  timers_.erase(found);
}

void Tickers::timerEvent(QTimerEvent* event) {
  const auto found = timers_.find(event->timerId());
  if (found == timers_.end()) return;
  const Timer& timer = *found->second;
  const auto tick = [&timer] { timer.tick(); };
  if (FormView* view = timer.form().view()) {
    view->perform(tick);
  } else {
    loops_.perform(tick);
  }
}

}  // namespace vellumark::ui::qt
