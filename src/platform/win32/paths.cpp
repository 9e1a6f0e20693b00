#include "platform/paths.h"

#include <shlobj.h>

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "platform/environment.h"
#include "platform/win32/wide.h"

namespace vellumark::platform {
namespace {

using win32::fromWide;
using win32::raiseFor;
using win32::widePath;

DWORD attributesOf(const std::string& path) { return GetFileAttributesW(widePath(path).c_str()); }

bool isMissing(DWORD code) {
  return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND || code == ERROR_INVALID_NAME ||
         code == ERROR_BAD_NETPATH || code == ERROR_INVALID_DRIVE;
}

std::string withBackslash(std::string folder) {
  if (!folder.ends_with('\\')) folder += '\\';
  return folder;
}

std::string specialFolder(int id) {
  wchar_t path[MAX_PATH];
  if (SHGetFolderPathW(nullptr, id, nullptr, SHGFP_TYPE_CURRENT, path) != S_OK) return "\\";
  return withBackslash(fromWide(path));
}

std::string longName(const std::wstring& path) {
  std::wstring result(GetLongPathNameW(path.c_str(), nullptr, 0), L'\0');
  const DWORD length = GetLongPathNameW(path.c_str(), result.data(), static_cast<DWORD>(result.size()));
  return fromWide(length == 0 || length >= result.size() ? path : result.substr(0, length));
}

}  // namespace

std::string toSystem(const std::string& path) { return base::replaceAll(path, "/", "\\"); }

std::string fromSystem(const std::string& path) { return base::replaceAll(path, "/", "\\"); }

bool fileExists(const std::string& path) {
  const DWORD attributes = attributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool directoryExists(const std::string& path) {
  const DWORD attributes = attributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool folderIsWritable(const std::string& path) {
  const HANDLE folder = CreateFileW(widePath(path).c_str(), FILE_ADD_FILE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (folder == INVALID_HANDLE_VALUE) return false;
  CloseHandle(folder);
  return true;
}

void makeDirectory(const std::string& path) {
  if (CreateDirectoryW(widePath(path).c_str(), nullptr)) return;
  const DWORD code = GetLastError();
  raiseFor(code == ERROR_PATH_NOT_FOUND ? base::errors::pathNotFound : base::errors::fileAccess, path, code);
}

void deleteFile(const std::string& path) {
  if (DeleteFileW(widePath(path).c_str())) return;
  const DWORD code = GetLastError();
  raiseFor(isMissing(code) ? base::errors::fileNotFound : base::errors::fileAccess, path, code);
}

std::string readFile(const std::string& path) {
  const HANDLE file = CreateFileW(widePath(path).c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    const DWORD code = GetLastError();
    raiseFor(code == ERROR_PATH_NOT_FOUND ? base::errors::pathNotFound
             : isMissing(code)            ? base::errors::fileNotFound
                                          : base::errors::fileAccess,
             path, code);
  }
  std::string bytes;
  char block[65536];
  DWORD count = 0;
  BOOL read = TRUE;
  while ((read = ReadFile(file, block, sizeof block, &count, nullptr)) && count > 0)
    bytes.append(block, count);
  const DWORD code = GetLastError();
  CloseHandle(file);
  if (!read) raiseFor(base::errors::fileAccess, path, code);
  return bytes;
}

std::vector<std::string> listFolder(const std::string& path) {
  std::vector<std::string> names;
  WIN32_FIND_DATAW entry;
  const HANDLE search = FindFirstFileW((widePath(withBackslash(toSystem(path))) + L"*").c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) {
    const DWORD code = GetLastError();
    if (code == ERROR_FILE_NOT_FOUND && directoryExists(path)) return names;
    raiseFor(
        isMissing(code) || code == ERROR_DIRECTORY ? base::errors::pathNotFound : base::errors::fileAccess,
        path, code);
  }
  do {
    const std::string name = fromWide(entry.cFileName);
    if (name != "." && name != "..") names.push_back(name);
  } while (FindNextFileW(search, &entry));
  FindClose(search);
  std::ranges::sort(names);
  return names;
}

std::string temporaryFolder() {
  wchar_t path[MAX_PATH + 1];
  const DWORD length = GetTempPathW(static_cast<DWORD>(std::size(path)), path);
  return withBackslash(longName(std::wstring(path, length)));
}

std::string internetCacheFolder() { return specialFolder(CSIDL_INTERNET_CACHE); }

std::string userSettingsFolder() { return specialFolder(CSIDL_APPDATA) + "Vellumark\\"; }

std::string userDataFolder() { return specialFolder(CSIDL_LOCAL_APPDATA) + "Vellumark\\"; }

std::string executablePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) base::raise(base::errors::fileNotFound);
    if (length < path.size()) return fromWide({path.data(), length});
    path.resize(path.size() * 2);
  }
}

}  // namespace vellumark::platform
