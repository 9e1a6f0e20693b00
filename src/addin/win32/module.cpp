#include "addin/win32/module.h"

#include <atomic>

#include "base/error.h"
#include "host/automation/com.h"

namespace vellumark::addin::win32 {
namespace {
std::atomic<long> locks{0};
}

std::string modulePath() {
  HMODULE module = nullptr;
  constexpr DWORD flags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  GetModuleHandleExW(flags, reinterpret_cast<const wchar_t*>(&modulePath), &module);
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) base::raise(base::errors::fileNotFound);
    if (length < path.size()) {
      path.resize(length);
      return host::automation::fromWide(path.c_str());
    }
    path.resize(path.size() * 2);
  }
}

std::string moduleFolder() {
  const std::string path = modulePath();
  return path.substr(0, path.rfind('\\'));
}

bool canUnload() { return locks == 0 && host::automation::liveObjects() == 0; }

void lockModule(bool lock) { locks += lock ? 1 : -1; }

}  // namespace vellumark::addin::win32
