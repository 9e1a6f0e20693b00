#pragma once

#include "ui/win32/system.h"

namespace vellumark::ui::win32 {

/// Dispatches what waits in the thread's queue of messages.
inline void pump() {
  MSG message = {};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace vellumark::ui::win32
