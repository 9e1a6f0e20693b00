#include "ui/qt/event_loops.h"

#include <QEventLoop>
#include <utility>

namespace vellumark::ui::qt {

void EventLoops::perform(const std::function<void()>& act) noexcept {
  try {
    act();
  } catch (...) {
    // What fails after the first failure is its consequence.
    if (!failure_) failure_ = std::current_exception();
    if (!running_.empty()) running_.back()->quit();
  }
}

void EventLoops::run(QEventLoop& loop) {
  if (!failure_) {
    running_.push_back(&loop);
    loop.exec();
    running_.pop_back();
  }
  rethrow();
}

void EventLoops::rethrow() {
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

}  // namespace vellumark::ui::qt
