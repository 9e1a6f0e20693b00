#include "platform/atomic_file.h"

#include <cstdlib>
#include <cstring>

#include "base/error.h"
#include "base/text.h"
#include "platform/win32/wide.h"

namespace vellumark::platform {
namespace {

using win32::fromWide;
using win32::widePath;

[[noreturn]] void fail(const std::string& what, DWORD code) {
  base::raise(base::errors::fileAccess, what + " (" + win32::systemMessage(code) + ")");
}

std::string folderOf(const std::string& path) {
  const std::size_t end = path.find_last_of('\\');
  return end == std::string::npos ? ".\\" : path.substr(0, end + 1);
}

void requireReplaceable(const std::string& target) {
  const DWORD attributes = GetFileAttributesW(widePath(target).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    base::raise(base::errors::fileAccess, "can't be written: it is a folder");
  }
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) fail("is write-protected", ERROR_ACCESS_DENIED);
  if ((attributes & FILE_ATTRIBUTE_DEVICE) != 0) {
    base::raise(base::errors::fileAccess, "can't be written: it is no ordinary file");
  }
}

bool runs(DWORD process) {
  const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
  if (!handle) return GetLastError() != ERROR_INVALID_PARAMETER;
  const bool ended = WaitForSingleObject(handle, 0) == WAIT_OBJECT_0;
  CloseHandle(handle);
  return !ended;
}

/// Removes temporary files that a program which was killed has left: their names hold the number of its
/// process. A file of another machine's that is being written can't be deleted.
void removeLeft(const std::string& folder) {
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(widePath(folder + ".vellumark-*-*.tmp").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    const std::string name = fromWide(found.cFileName);
    const auto process =
        static_cast<DWORD>(std::strtoul(name.c_str() + std::strlen(".vellumark-"), nullptr, 10));
    if (!runs(process)) DeleteFileW(widePath(folder + name).c_str());
  } while (FindNextFileW(search, &found));
  FindClose(search);
}

/// An empty file of a name that nobody has.
std::string makeTemporary(const std::string& folder) {
  for (DWORD attempt = GetTickCount();; ++attempt) {
    const std::string path = folder + ".vellumark-" + std::to_string(GetCurrentProcessId()) + "-" +
                             std::to_string(attempt) + ".tmp";
    const HANDLE file = CreateFileW(widePath(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
      CloseHandle(file);
      return path;
    }
    const DWORD code = GetLastError();
    if (code != ERROR_FILE_EXISTS) fail("can't be written: the folder takes no new file", code);
  }
}

}  // namespace

AtomicFile::AtomicFile(const std::string& target) : target_(base::replaceAll(target, "/", "\\")) {
  requireReplaceable(target_);
  removeLeft(folderOf(target_));
  temporary_ = makeTemporary(folderOf(target_));
}

AtomicFile::~AtomicFile() {
  if (!committed_) DeleteFileW(widePath(temporary_).c_str());
}

bool AtomicFile::replacesOpenFiles() { return false; }

void AtomicFile::commit(Flush flush) {
  const std::wstring temporary = widePath(temporary_), target = widePath(target_);
  constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = CreateFileW(temporary.c_str(), GENERIC_READ | GENERIC_WRITE, shared, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) fail("can't be opened again after writing", GetLastError());
  const BOOL flushed = flush == Flush::later || FlushFileBuffers(file);
  const DWORD code = GetLastError();
  CloseHandle(file);
  if (!flushed) fail("can't be brought to the disk", code);
  // What is replaced hands its attributes on; the access rights are those that the folder gives its files.
  if (const DWORD old = GetFileAttributesW(target.c_str()); old != INVALID_FILE_ATTRIBUTES) {
    SetFileAttributesW(temporary.c_str(), old);
  }
  const DWORD through = flush == Flush::now ? MOVEFILE_WRITE_THROUGH : 0;
  if (!MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | through)) {
    fail("can't be replaced", GetLastError());
  }
  committed_ = true;
}

void flushFolder(const std::string&) {}

}  // namespace vellumark::platform
