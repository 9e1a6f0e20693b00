#pragma once
// The one conversion between failures of the system and those of COM.

#include "base/trap.h"
#include "host/automation/com.h"

namespace vellumark::host::automation {

/// Throws the failure of a call: what the callee's EXCEPINFO tells, where it gave one, with PowerPoint's
/// number (errors of a control's facility by their small number); else the language's number that belongs to
/// the result, else the result itself. Frees the texts of `info`.
[[noreturn]] void raiseFor(HRESULT result, EXCEPINFO* info = nullptr);

/// The result that tells COM of a failure: the numbers that have a result of their own by it, small numbers
/// in the facility of controls, large negative ones as they are.
HRESULT resultFor(const base::Error& error);

/// Tells a caller of Invoke about a failure and gives the result to return.
HRESULT tellInvoker(const base::Error& error, EXCEPINFO* info);

/// Sets the thread's error object for a caller of an interface's method and gives the result to return.
HRESULT tellCaller(const base::Error& error);

/// Runs `body`, which must not let anything escape into COM; `tell(error)` gives the result of a failure.
template <typename Body, typename Tell>
HRESULT guarded(Body&& body, Tell&& tell) noexcept {
  try {
    try {
      body();
      return S_OK;
    } catch (...) {
      return tell(base::detail::currentError());
    }
  } catch (...) {
    return E_OUTOFMEMORY;  // the telling itself found no memory
  }
}

}  // namespace vellumark::host::automation
