#pragma once

#include <windows.h>

#include <vector>

namespace vellumark::ui::win32 {

/// The top-level window of this thread that is worked with, to own what comes up now; nullptr where there is
/// none.
HWND ownerWindow();

/// While it lives, the thread's other top-level windows take no input.
class Modality {
 public:
  explicit Modality(HWND except);
  ~Modality();
  Modality(const Modality&) = delete;
  Modality& operator=(const Modality&) = delete;

 private:
  std::vector<HWND> disabled_;
};

}  // namespace vellumark::ui::win32
