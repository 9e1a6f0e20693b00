#pragma once
// Calls of the host into the add-in, while they run.

#include <functional>

namespace vellumark::host {

/// One call of the host: a callback of the ribbon, an event, a connection. Calls lie within each other,
/// because a dialog that is open lets further ones in.
class RunningCall {
 public:
  RunningCall();
  /// Does what waited for the outermost call.
  ~RunningCall();
  RunningCall(const RunningCall&) = delete;
  RunningCall& operator=(const RunningCall&) = delete;
};

/// Does something when no call runs: at once, or when the outermost has returned, where its failures end.
/// What takes away the ground of running code waits in this way.
void whenNoCallRuns(std::function<void()> act);

}  // namespace vellumark::host
