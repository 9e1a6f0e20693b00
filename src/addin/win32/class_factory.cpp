#include "addin/win32/class_factory.h"

#include "addin/win32/connect_object.h"
#include "addin/win32/module.h"
#include "host/automation/failures.h"

namespace vellumark::addin::win32 {

using host::automation::ComPtr;

void* ClassFactory::find(REFIID id) {
  return id == IID_IUnknown || id == IID_IClassFactory ? static_cast<IClassFactory*>(this) : nullptr;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  ComPtr<ConnectObject> object;
  const HRESULT made = host::automation::guarded([&] { object = host::automation::adopt(new ConnectObject); },
                                                 &host::automation::tellCaller);
  return FAILED(made) ? made : object->QueryInterface(id, result);
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  lockModule(lock != FALSE);
  return S_OK;
}

}  // namespace vellumark::addin::win32
