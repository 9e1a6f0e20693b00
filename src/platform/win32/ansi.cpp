#include "platform/ansi.h"

#include "platform/win32/wide.h"

namespace vellumark::platform {
namespace {

/// One UTF-16 unit in the system's code page, or "?". Pages of several bytes to a character give more than
/// one.
std::string unitToAnsi(wchar_t unit) {
  char bytes[8];
  BOOL replaced = FALSE;
  const int count =
      WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes, sizeof bytes, nullptr, &replaced);
  return count > 0 && !replaced ? std::string(bytes, static_cast<std::size_t>(count)) : "?";
}

}  // namespace

std::string toAnsi(std::string_view text) {
  if (GetACP() == CP_UTF8) return std::string(text);
  std::string bytes;
  for (const wchar_t unit : win32::toWide(text)) {
    if (unit < 0x80) {
      bytes += static_cast<char>(unit);
    } else {
      bytes += unitToAnsi(unit);
    }
  }
  return bytes;
}

std::string fromAnsi(std::string_view bytes) {
  if (bytes.empty()) return {};
  const int size = static_cast<int>(bytes.size());
  std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0)),
                    L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), static_cast<int>(text.size()));
  return win32::fromWide(text);
}

}  // namespace vellumark::platform
