// The four entry points of the DLL.

#include "addin/win32/class_factory.h"
#include "addin/win32/interfaces.h"
#include "addin/win32/module.h"
#include "addin/win32/registration.h"
#include "host/automation/failures.h"

namespace {

using namespace vellumark::addin::win32;
using vellumark::base::Error;
using vellumark::host::automation::guarded;

/// What a registration that failed tells the program that asked for it.
HRESULT registryResult(const Error& error) {
  vellumark::host::automation::tellCaller(error);
  return SELFREG_E_CLASS;
}

}  // namespace

STDAPI DllRegisterServer() {
  return guarded([] { registerAddIn(chosenScope()); }, &registryResult);
}

/// Removes the user's registration and that for all users; the user's alone where that was wished. A user who
/// may not remove the other is told so.
STDAPI DllUnregisterServer() {
  return guarded(
      [] {
        unregisterAddIn(Scope::user);
        if (wishedScope() != Scope::user) unregisterAddIn(Scope::machine);
      },
      &registryResult);
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  if (classId != connectClass) return CLASS_E_CLASSNOTAVAILABLE;
  vellumark::host::automation::ComPtr<ClassFactory> factory;
  const HRESULT made = guarded([&] { factory = vellumark::host::automation::adopt(new ClassFactory); },
                               &vellumark::host::automation::tellCaller);
  return FAILED(made) ? made : factory->QueryInterface(id, result);
}

STDAPI DllCanUnloadNow() { return canUnload() ? S_OK : S_FALSE; }
