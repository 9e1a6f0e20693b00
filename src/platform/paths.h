#pragma once
// Files and folders by the logic's paths.
//
// The logic joins paths by plain concatenation, and its folders end in a backslash: rootFolder + "program\".
// On Windows they are the system's own. On Linux both "\" and "/" divide the parts of such a path. Every
// function here takes such paths and finds names that differ only in the case of ASCII letters where the
// exact name is missing, as on Windows. A name that holds a backslash of its own can't be reached.

#include <filesystem>
#include <string>
#include <vector>

namespace vellumark::platform {

/// The system's form of a path, case put right as far as the path exists: "/opt/vellumark\program\" gives
/// "/opt/vellumark/program/".
std::string toSystem(const std::string& path);
/// The logic's form of a system's path, with backslashes only: "/opt/vellumark/" gives "\opt\vellumark\".
std::string fromSystem(const std::string& path);

/// A system's path for the standard library, and back: on Windows its own texts aren't UTF-8.
inline std::filesystem::path pathOf(const std::string& path) {
  return {std::u8string(path.begin(), path.end())};
}
inline std::string textOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

/// Whether there is such a file that is no folder.
bool fileExists(const std::string& path);
bool directoryExists(const std::string& path);
/// Whether this user may make files in a folder.
bool folderIsWritable(const std::string& path);
/// Makes one folder; 75 where the name is taken or the place is not writable, 76 where the parent is missing.
void makeDirectory(const std::string& path);
/// 53 where there is no such file, 75 where it can't be deleted or is a folder.
void deleteFile(const std::string& path);
/// Writes a file of these bytes, which is at any moment the whole old or the whole new one; 75 where it can't
/// be written.
void writeFile(const std::string& path, const std::string& bytes);
/// Copies a file over another one; fails as readFile() does for the first and as writeFile() for the second.
void copyFile(const std::string& from, const std::string& to);
/// All bytes of a file; 53 where it is missing, 75 where it can't be read, 76 where its folder is missing.
std::string readFile(const std::string& path);
/// The names in a folder in alphabetical order; 76 where it is missing, 75 where it can't be read.
std::vector<std::string> listFolder(const std::string& path);

// Folders of the system in the logic's form, with a backslash at the end. They need not exist.

std::string temporaryFolder();      ///< $TMPDIR or /tmp
std::string internetCacheFolder();  ///< $XDG_CACHE_HOME or ~/.cache
std::string userSettingsFolder();   ///< "vellumark" in $XDG_CONFIG_HOME or ~/.config
std::string userDataFolder();       ///< "vellumark" in $XDG_DATA_HOME or ~/.local/share
std::string executablePath();       ///< the running program; 53 where the system doesn't tell

}  // namespace vellumark::platform
