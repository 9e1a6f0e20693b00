#include "platform/win32/wide.h"

#include "base/error.h"
#include "base/text.h"

namespace vellumark::platform::win32 {

std::wstring toWide(std::string_view text) {
  const std::u16string units = base::toUtf16(text);
  static_assert(sizeof(wchar_t) == sizeof(char16_t));
  return {reinterpret_cast<const wchar_t*>(units.data()), units.size()};
}

std::string fromWide(std::wstring_view text) {
  return base::fromUtf16({reinterpret_cast<const char16_t*>(text.data()), text.size()});
}

std::wstring widePath(const std::string& path) {
  const std::wstring plain = toWide(base::replaceAll(path, "/", "\\"));
  if (plain.size() < MAX_PATH - 12 || plain.starts_with(L"\\\\?\\"))
    return plain;  // a folder leaves room for a name
  std::wstring full(GetFullPathNameW(plain.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(GetFullPathNameW(plain.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  const bool onServer = full.starts_with(L"\\\\");
  return onServer ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

std::string systemMessage(DWORD code) {
  wchar_t text[512];
  constexpr DWORD flags =
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
  const DWORD length =
      FormatMessageW(flags, nullptr, code, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  return length == 0 ? "error " + std::to_string(code) : base::trim(fromWide({text, length}));
}

void raiseFor(int number, const std::string& path, DWORD code) {
  base::raise(number, base::standardDescription(number) + ": " + path + " (" + systemMessage(code) + ")");
}

}  // namespace vellumark::platform::win32
