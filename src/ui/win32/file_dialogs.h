#pragma once
// The system's own dialogs for files and folders.

#include <windows.h>

#include <optional>
#include <string>

#include "ui/message_box.h"

namespace vellumark::ui::win32 {

/// Asks for a file to open or to save.
std::optional<std::string> askFile(const FileDialog& dialog, HWND owner);
/// Asks for a folder.
std::optional<std::string> askFolder(const FileDialog& dialog, HWND owner);

}  // namespace vellumark::ui::win32
