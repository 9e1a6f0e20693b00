#pragma once
// The little of COM that everything here stands on.

#include <ole2.h>
#include <olectl.h>
#include <wrl/client.h>

#include <atomic>
#include <string>
#include <string_view>

#include "platform/win32/wide.h"

// The host has a member RGB, and "interface" is a word like any other.
#undef RGB
#undef interface

namespace vellumark::host::automation {

using Microsoft::WRL::ComPtr;
using platform::win32::fromWide;
using platform::win32::toWide;

/// Takes over the reference with which a new object begins.
template <typename T>
ComPtr<T> adopt(T* object) {
  ComPtr<T> pointer;
  *pointer.GetAddressOf() = object;
  return pointer;
}

/// How many objects of this module others may hold. The module can't be unloaded while there are any.
long liveObjects();
/// Counts one such object for as long as it lives.
class LiveObject {
 public:
  LiveObject();
  ~LiveObject();
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;
};

/// Reference counting of an object that deletes itself. `T` derives from its interfaces and has
/// `void* find(REFIID)`, which gives the interface of that id or nothing.
template <typename T, typename... Interfaces>
class Unknown : public Interfaces... {
 public:
  Unknown() = default;
  Unknown(const Unknown&) = delete;
  Unknown& operator=(const Unknown&) = delete;
  virtual ~Unknown() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    if (result == nullptr) return E_POINTER;
    *result = static_cast<T*>(this)->find(id);
    if (*result == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete static_cast<T*>(this);
    return left;
  }

 private:
  std::atomic<ULONG> references_{1};
  LiveObject live_;
};

/// UTF-8 to a new BSTR, which the caller frees, and back. A null BSTR is the empty text. 7 where memory is
/// short.
BSTR toBstr(std::string_view text);
std::string fromBstr(BSTR text);

/// A BSTR that frees itself.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(std::string_view text) : text_(toBstr(text)) {}
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  BSTR get() const { return text_; }
  BSTR* out() { return &text_; }
  BSTR release() {
    const BSTR text = text_;
    text_ = nullptr;
    return text;
  }

 private:
  BSTR text_ = nullptr;
};

}  // namespace vellumark::host::automation
