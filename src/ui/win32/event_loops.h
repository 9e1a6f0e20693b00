#pragma once

#include <exception>
#include <functional>

namespace vellumark::ui::win32 {

/// The message loops of the toolkit that run at the moment, one within the other.
///
/// A failure in a form's handler can't pass through the system. It is kept instead, ends the innermost loop,
/// and goes on from the call that runs that loop.
class EventLoops {
 public:
  /// Calls what may fail. Where nobody waits for the failure (`keep` is false), it ends here.
  void perform(const std::function<void()>& act, bool keep) noexcept;
  /// The same for a failure that has been caught.
  void caught(bool keep) noexcept;
  /// Runs a loop while `goesOn` says so; throws the failure that was kept meanwhile. When the program is to
  /// quit, the loop ends and leaves the request to the loop around it.
  void run(const std::function<bool()>& goesOn);
  /// Throws the failure that is kept, if there is one.
  void rethrow();
  /// Makes the loops ask again whether they go on.
  static void wake();

 private:
  std::exception_ptr failure_;
};

}  // namespace vellumark::ui::win32
