#include "platform/path_lock.h"

#include "base/text.h"
#include "platform/paths.h"
#include "platform/win32/wide.h"

namespace vellumark::platform {
namespace {
HANDLE handleOf(std::intptr_t number) { return reinterpret_cast<HANDLE>(number); }
}  // namespace

// A named mutex stands for the path: a lock on the file itself would keep it from being replaced.
PathLock::PathLock(const std::string& path, std::chrono::milliseconds patience) {
  const std::string name = base::toLower(textOf(std::filesystem::absolute(pathOf(toSystem(path)))));
  const std::string mutex = "vellumark-" + std::to_string(std::hash<std::string>()(name));
  const HANDLE handle = CreateMutexW(nullptr, FALSE, win32::toWide(mutex).c_str());
  handle_ = reinterpret_cast<std::intptr_t>(handle);
  if (handle == nullptr) return;
  held_ = WaitForSingleObject(handle, static_cast<DWORD>(patience.count())) != WAIT_TIMEOUT;
}

PathLock::~PathLock() {
  if (handleOf(handle_) == nullptr) return;
  if (held_) ReleaseMutex(handleOf(handle_));
  CloseHandle(handleOf(handle_));
}

}  // namespace vellumark::platform
