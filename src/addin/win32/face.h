#pragma once
// A further interface of a COM object: its references are the object's.

#include <span>
#include <string_view>

#include "base/text.h"
#include "host/automation/com.h"
#include "host/automation/failures.h"

namespace vellumark::addin::win32 {

/// `Interface` derives from IDispatch and is called through its table by most hosts; for those that go by
/// name, `names` holds its methods in the order of their numbers, from 1.
template <typename Interface>
class Face : public Interface {
 public:
  Face(IUnknown& owner, std::span<const std::string_view> names) : owner_(owner), names_(names) {}
  virtual ~Face() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    return owner_.QueryInterface(id, result);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return owner_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return owner_.Release(); }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (names == nullptr || ids == nullptr || count == 0) return E_POINTER;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    const HRESULT searched = host::automation::guarded(
        [&] {
          const std::string wanted = host::automation::fromWide(names[0]);
          for (std::size_t i = 0; i < names_.size(); ++i) {
            if (base::equalsIgnoreCase(names_[i], wanted)) ids[0] = static_cast<DISPID>(i + 1);
          }
        },
        &host::automation::resultFor);
    if (FAILED(searched)) return searched;
    return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
  }

 private:
  IUnknown& owner_;
  std::span<const std::string_view> names_;
};

}  // namespace vellumark::addin::win32
