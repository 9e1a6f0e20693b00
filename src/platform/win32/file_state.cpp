#include "platform/file_state.h"

#include "platform/paths.h"
#include "platform/win32/wide.h"

namespace vellumark::platform {

std::optional<FileState> fileState(const std::string& path) {
  constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = CreateFileW(win32::widePath(toSystem(path)).c_str(), 0, shared, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  BY_HANDLE_FILE_INFORMATION found{};
  const BOOL known = GetFileInformationByHandle(file, &found);
  CloseHandle(file);
  if (!known) return std::nullopt;
  return FileState{{found.dwVolumeSerialNumber, found.nFileIndexHigh, found.nFileIndexLow},
                   {(std::uint64_t{found.nFileSizeHigh} << 32) + found.nFileSizeLow,
                    found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime}};
}

}  // namespace vellumark::platform
