#include "platform/shell.h"

#include <windows.h>
#include <shellapi.h>

#include "base/error.h"
#include "platform/environment.h"
#include "platform/paths.h"
#include "platform/win32/wide.h"

namespace vellumark::platform {
namespace {

/// Shows a page of a compiled help file. The system's viewer is loaded when it is first asked: not every
/// Windows has one.
HWND showHelp(const std::wstring& file, UINT command, DWORD_PTR data) {
  using HtmlHelp = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
  constexpr WORD htmlHelpW = 15;  // its ordinal in the viewer's library
  static const HMODULE viewer = LoadLibraryW(L"hhctrl.ocx");
  if (viewer == nullptr) return nullptr;
  const FARPROC entry = GetProcAddress(viewer, reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(htmlHelpW)));
  if (entry == nullptr) return nullptr;
  return reinterpret_cast<HtmlHelp>(reinterpret_cast<void*>(entry))(nullptr, file.c_str(), command, data);
}

}  // namespace

int openURL(const std::string& url) {
  const std::wstring wide = win32::toWide(url);
  const auto opener = environmentVariable("VELLUMARK_OPENER");
  const std::wstring program = win32::toWide(opener.value_or(""));
  const std::wstring quoted = L"\"" + wide + L"\"";
  const HINSTANCE result =
      opener ? ShellExecuteW(nullptr, L"open", program.c_str(), quoted.c_str(), nullptr, SW_SHOWNORMAL)
             : ShellExecuteW(nullptr, L"open", wide.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  return static_cast<int>(reinterpret_cast<INT_PTR>(result));
}

void showInFolder(const std::string& file) {
  const std::wstring arguments = L"/e, /select, \"" + win32::toWide(toSystem(file)) + L"\"";
  const HINSTANCE result =
      ShellExecuteW(nullptr, L"open", L"explorer", arguments.c_str(), nullptr, SW_SHOWNORMAL);
  if (reinterpret_cast<INT_PTR>(result) <= 32) {
    base::raise(base::errors::fileNotFound, "The folder of " + file + " can't be opened");
  }
}

void mailFile(const std::string& mailer, const std::string& name, const std::string& file) {
  const auto quoted = [](const std::string& text) { return L"\"" + win32::toWide(text) + L"\""; };
  const std::wstring arguments = quoted(name) + L" " + quoted(name) + L" " + quoted(toSystem(file));
  const HINSTANCE result = ShellExecuteW(nullptr, L"open", win32::toWide(toSystem(mailer)).c_str(),
                                         arguments.c_str(), nullptr, SW_SHOWMINIMIZED);
  if (reinterpret_cast<INT_PTR>(result) <= 32) {
    base::raise(base::errors::fileNotFound, "The mailer " + mailer + " can't be started");
  }
}

bool openHelp(const std::string& file, int contextId) {
  constexpr UINT helpContext = 15;
  return fileExists(file) &&
         showHelp(win32::widePath(file), helpContext, static_cast<DWORD_PTR>(contextId)) != nullptr;
}

}  // namespace vellumark::platform
