#include "platform/library.h"

#include "base/error.h"
#include "platform/paths.h"
#include "platform/win32/wide.h"

namespace vellumark::platform {
namespace {

[[noreturn]] void raiseMissing(const std::string& what) {
  base::raise(base::errors::fileNotFound, what + ": " + win32::systemMessage(GetLastError()));
}

}  // namespace

Library Library::besideExecutable(const std::string& name) {
  const std::string program = executablePath();
  const std::string path = program.substr(0, program.rfind('\\') + 1) + name + ".dll";
  const HMODULE handle = LoadLibraryW(win32::widePath(path).c_str());
  if (handle == nullptr) raiseMissing("The library " + path + " can't be loaded");
  return {handle, path};
}

void* Library::address(const std::string& symbol) const {
  const FARPROC address = GetProcAddress(static_cast<HMODULE>(handle_), symbol.c_str());
  if (address == nullptr) raiseMissing("The library " + path_ + " lacks " + symbol);
  return reinterpret_cast<void*>(address);
}

}  // namespace vellumark::platform
