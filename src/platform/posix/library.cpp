#include "platform/library.h"

#include <dlfcn.h>

#include "base/error.h"
#include "platform/paths.h"

namespace vellumark::platform {
namespace {

[[noreturn]] void raiseMissing(const std::string& what) {
  const char* reason = dlerror();
  base::raise(base::errors::fileNotFound, what + (reason != nullptr ? std::string(": ") + reason : ""));
}

}  // namespace

Library Library::besideExecutable(const std::string& name) {
  const std::string program = toSystem(executablePath());
  const std::string path = program.substr(0, program.rfind('/') + 1) + "lib" + name + ".so";
  void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) raiseMissing("The library " + path + " can't be loaded");
  return {handle, path};
}

void* Library::address(const std::string& symbol) const {
  void* address = dlsym(handle_, symbol.c_str());
  if (address == nullptr) raiseMissing("The library " + path_ + " lacks " + symbol);
  return address;
}

}  // namespace vellumark::platform
