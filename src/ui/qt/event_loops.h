#pragma once

#include <exception>
#include <functional>
#include <vector>

class QEventLoop;

namespace vellumark::ui::qt {

/// The event loops of the toolkit that run at the moment, one within the other.
///
/// A failure in a form's handler can't pass through Qt. It is kept instead, ends the innermost loop, and goes
/// on from the call that runs that loop.
class EventLoops {
 public:
  /// Calls what may fail.
  void perform(const std::function<void()>& act) noexcept;
  /// Runs a loop until somebody quits it; throws the failure that was kept meanwhile.
  void run(QEventLoop& loop);
  /// Throws the failure that is kept, if there is one.
  void rethrow();

 private:
  std::vector<QEventLoop*> running_;
  std::exception_ptr failure_;
};

}  // namespace vellumark::ui::qt
