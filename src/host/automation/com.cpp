#include "host/automation/com.h"

#include "base/error.h"

namespace vellumark::host::automation {
namespace {
std::atomic<long> objects{0};
}  // namespace

long liveObjects() { return objects; }
LiveObject::LiveObject() { ++objects; }
LiveObject::~LiveObject() { --objects; }

BSTR toBstr(std::string_view text) {
  const std::wstring wide = toWide(text);
  const BSTR result = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (result == nullptr) base::raise(base::errors::outOfMemory);
  return result;
}

std::string fromBstr(BSTR text) { return fromWide({text, SysStringLen(text)}); }

}  // namespace vellumark::host::automation
