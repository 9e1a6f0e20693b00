#include "host/automation/served_type.h"

#include <cstring>
#include <new>

#include "host/automation/failures.h"

namespace vellumark::host::automation {

void* ServedType::find(REFIID id) {
  return id == IID_IUnknown || id == IID_ITypeInfo ? static_cast<ITypeInfo*>(this) : nullptr;
}

HRESULT ServedType::GetTypeAttr(TYPEATTR** attributes) {
  if (attributes == nullptr) return E_POINTER;
  *attributes = new (std::nothrow) TYPEATTR{};
  if (*attributes == nullptr) return E_OUTOFMEMORY;
  (*attributes)->typekind = TKIND_DISPATCH;
  // FNV-1a over the name, twice with different beginnings, fills the id.
  constexpr unsigned long long prime = 0x100000001B3;
  unsigned long long halves[] = {0xCBF29CE484222325, 0x9AE16A3B2F90404F};
  for (unsigned long long& half : halves) {
    for (const char letter : name_) half = (half ^ static_cast<unsigned char>(letter)) * prime;
  }
  static_assert(sizeof halves == sizeof(GUID));
  std::memcpy(&(*attributes)->guid, halves, sizeof halves);
  return S_OK;
}

void ServedType::ReleaseTypeAttr(TYPEATTR* attributes) { delete attributes; }

HRESULT ServedType::GetDocumentation(MEMBERID member, BSTR* name, BSTR* text, DWORD* helpContext,
                                     BSTR* helpFile) {
  if (member != MEMBERID_NIL) return TYPE_E_ELEMENTNOTFOUND;
  if (text != nullptr) *text = nullptr;
  if (helpContext != nullptr) *helpContext = 0;
  if (helpFile != nullptr) *helpFile = nullptr;
  if (name == nullptr) return S_OK;
  *name = nullptr;
  return guarded([&] { *name = toBstr(name_); }, &resultFor);
}

}  // namespace vellumark::host::automation
