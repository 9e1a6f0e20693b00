#pragma once
// Texts and failures at the border to the system.

#include <windows.h>

#include <string>
#include <string_view>

namespace vellumark::platform::win32 {

/// UTF-8 to the system's UTF-16 and back.
std::wstring toWide(std::string_view text);
std::string fromWide(std::wstring_view text);

/// A path as the system takes it: absolute with the prefix for long paths where it is long.
std::wstring widePath(const std::string& path);

/// The system's words for one of its error codes, without the line break at their end.
std::string systemMessage(DWORD code);

/// Raises `number` with its standard description, the path and the system's words for `code`.
[[noreturn]] void raiseFor(int number, const std::string& path, DWORD code);

}  // namespace vellumark::platform::win32
