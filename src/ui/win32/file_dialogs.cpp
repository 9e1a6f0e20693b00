#include "ui/win32/file_dialogs.h"

#include <algorithm>
#include <vector>

#include "ui/win32/conversions.h"
#include "ui/win32/system.h"

namespace vellumark::ui::win32 {
namespace {

/// Descriptions and patterns by turns, each with an end of its own, and one more at the end of all.
std::wstring filterText(const FileDialog& dialog) {
  std::wstring text;
  for (const FileDialog::Filter& filter : dialog.filters) {
    text +=
        toWide(filter.description + " (" + filter.patterns + ")") + L'\0' + toWide(filter.patterns) + L'\0';
  }
  return text + L'\0';
}

bool isFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Selects the folder to begin with.
int CALLBACK folderDialogBegins(HWND window, UINT message, LPARAM, LPARAM path) {
  if (message == BFFM_INITIALIZED && path) SendMessageW(window, BFFM_SETSELECTIONW, TRUE, path);
  return 0;
}

}  // namespace

std::optional<std::string> askFile(const FileDialog& dialog, HWND owner) {
  constexpr std::size_t longestPath = 32768;
  std::wstring path(longestPath, L'\0');
  std::wstring folder = toWide(dialog.initialPath);
  std::replace(folder.begin(), folder.end(), L'/', L'\\');
  if (!folder.empty() && !isFolder(folder)) {
    const std::size_t end = folder.find_last_of(L'\\');
    const std::wstring name = end == std::wstring::npos ? folder : folder.substr(end + 1);
    std::copy_n(name.begin(), std::min(name.size(), longestPath - 1), path.begin());
    folder.resize(end == std::wstring::npos ? 0 : end);
  }
  const std::wstring title = toWide(dialog.title);
  const std::wstring filters = filterText(dialog);
  const std::wstring extension = toWide(dialog.defaultExtension);
  OPENFILENAMEW asked = {};
  asked.lStructSize = sizeof asked;
  asked.hwndOwner = owner;
  asked.lpstrFilter = dialog.filters.empty() ? nullptr : filters.c_str();
  asked.lpstrFile = path.data();
  asked.nMaxFile = static_cast<DWORD>(path.size());
  asked.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  asked.lpstrTitle = title.empty() ? nullptr : title.c_str();
  asked.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
  asked.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST;
  const bool saves = dialog.kind == FileDialog::Kind::save;
  asked.Flags |= saves ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST;
  if (!(saves ? GetSaveFileNameW(&asked) : GetOpenFileNameW(&asked))) return std::nullopt;
  return fromWide(path.c_str());
}

std::optional<std::string> askFolder(const FileDialog& dialog, HWND owner) {
  const std::wstring title = toWide(dialog.title);
  const std::wstring begin = toWide(dialog.initialPath);
  BROWSEINFOW asked = {};
  asked.hwndOwner = owner;
  asked.lpszTitle = title.c_str();
  asked.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE | BIF_EDITBOX;
  asked.lpfn = folderDialogBegins;
  asked.lParam = begin.empty() ? 0 : reinterpret_cast<LPARAM>(begin.c_str());
  LPITEMIDLIST chosen = SHBrowseForFolderW(&asked);
  if (!chosen) return std::nullopt;
  wchar_t path[MAX_PATH] = {};
  const BOOL known = SHGetPathFromIDListW(chosen, path);
  CoTaskMemFree(chosen);
  if (!known) return std::nullopt;
  return fromWide(path);
}

}  // namespace vellumark::ui::win32
