#include "host/automation/com.h"

#include "base/error.h"
#include "base/text.h"

namespace vellumark::host::automation {
namespace {
std::atomic<long> objects{0};

std::u16string_view view(const wchar_t* text, std::size_t length) {
  static_assert(sizeof(wchar_t) == sizeof(char16_t));
  return {reinterpret_cast<const char16_t*>(text), length};
}
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

std::string fromBstr(BSTR text) { return base::fromUtf16(view(text, SysStringLen(text))); }

std::string fromWide(const wchar_t* text) {
  return base::fromUtf16(view(text, std::char_traits<wchar_t>::length(text)));
}

std::wstring toWide(std::string_view text) {
  const std::u16string units = base::toUtf16(text);
  return {reinterpret_cast<const wchar_t*>(units.data()), units.size()};
}

}  // namespace vellumark::host::automation
