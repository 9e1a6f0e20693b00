#include "host/running_call.h"

#include <utility>
#include <vector>

#include "base/trap.h"

namespace vellumark::host {
namespace {

/// The host calls on its one thread, and so this is one for the process.
struct Calls {
  int running = 0;
  std::vector<std::function<void()>> waiting;
};

Calls& calls() {
  static Calls instance;
  return instance;
}

}  // namespace

RunningCall::RunningCall() { ++calls().running; }

RunningCall::~RunningCall() {
  if (--calls().running > 0) return;
  for (const auto& act : std::exchange(calls().waiting, {})) base::resumeNext(act);
}

void whenNoCallRuns(std::function<void()> act) {
  if (calls().running == 0) return act();
  calls().waiting.push_back(std::move(act));
}

}  // namespace vellumark::host
