#pragma once

#include "host/automation/com.h"

namespace vellumark::addin::win32 {

/// Makes objects of the class Connect.
class ClassFactory : public host::automation::Unknown<ClassFactory, IClassFactory> {
 public:
  void* find(REFIID id);
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** result) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;
};

}  // namespace vellumark::addin::win32
