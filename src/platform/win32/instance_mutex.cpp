#include "platform/instance_mutex.h"

#include "platform/win32/wide.h"

namespace vellumark::platform {
namespace {
HANDLE handleOf(std::intptr_t number) { return reinterpret_cast<HANDLE>(number); }
}  // namespace

InstanceMutex::InstanceMutex(std::string_view name)
    : handle_(reinterpret_cast<std::intptr_t>(CreateMutexW(nullptr, FALSE, win32::toWide(name).c_str()))) {}

InstanceMutex::~InstanceMutex() {
  if (handleOf(handle_) == nullptr) return;
  ReleaseMutex(handleOf(handle_));
  CloseHandle(handleOf(handle_));
}

bool InstanceMutex::isSet(std::string_view name) {
  const HANDLE handle = OpenMutexW(SYNCHRONIZE, FALSE, win32::toWide(name).c_str());
  if (handle == nullptr) return false;
  CloseHandle(handle);
  return true;
}

}  // namespace vellumark::platform
