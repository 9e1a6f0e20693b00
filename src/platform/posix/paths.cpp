#include "platform/paths.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "base/error.h"
#include "base/text.h"
#include "platform/environment.h"

namespace vellumark::platform {
namespace {

namespace fs = std::filesystem;

bool exists(const std::string& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

/// The name in `folder` that equals `name` but for case; the first in the alphabet of several, `name` if
/// there is none.
std::string nameInFolder(const std::string& folder, const std::string& name) {
  std::string found;
  std::error_code error;
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string candidate = entry->path().filename().string();
    if (base::equalsIgnoreCase(candidate, name) && (found.empty() || candidate < found)) found = candidate;
  }
  return found.empty() ? name : found;
}

std::error_code lastError() { return {errno, std::generic_category()}; }

/// Raises `missing` where the system says that there is no such thing, 75 otherwise.
[[noreturn]] void raiseFor(const std::string& path, std::error_code reason, int missing) {
  const bool none = reason == std::errc::no_such_file_or_directory || reason == std::errc::not_a_directory;
  const int number = none ? missing : base::errors::fileAccess;
  base::raise(number, base::standardDescription(number) + ": " + path + " (" + reason.message() + ")");
}

std::string home() {
  if (const auto folder = environmentVariable("HOME")) return *folder;
  const passwd* user = getpwuid(getuid());
  return user != nullptr ? user->pw_dir : "/";
}

/// A folder that a variable names, as long as it is an absolute path, or its default.
std::string folderOf(const char* variable, const std::string& defaultFolder) {
  const auto value = environmentVariable(variable);
  return (value && value->front() == '/' ? *value : defaultFolder) + "/";
}

std::string folderInLogicForm(const std::string& path) {
  return fromSystem(fs::path(path).lexically_normal());
}

}  // namespace

std::string toSystem(const std::string& path) {
  const std::string plain = base::replaceAll(path, "\\", "/");
  if (exists(plain)) return plain;
  std::string found;
  bool missing = false;
  for (std::size_t begin = 0; begin < plain.size();) {
    const std::size_t end = std::min(plain.find('/', begin), plain.size());
    const std::string name = plain.substr(begin, end - begin);
    // Once a part of the path is missing, so is everything below it.
    if (missing || name.empty() || exists(found + name)) {
      found += name;
    } else {
      found += nameInFolder(found, name);
      missing = !exists(found);
    }
    if (end < plain.size()) found += '/';
    begin = end + 1;
  }
  return found;
}

std::string fromSystem(const std::string& path) { return base::replaceAll(path, "/", "\\"); }

bool fileExists(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(toSystem(path), error);
  return fs::exists(status) && !fs::is_directory(status);
}

bool directoryExists(const std::string& path) {
  std::error_code error;
  return fs::is_directory(toSystem(path), error);
}

bool folderIsWritable(const std::string& path) { return access(toSystem(path).c_str(), W_OK | X_OK) == 0; }

void makeDirectory(const std::string& path) {
  const std::string folder = toSystem(path);
  std::error_code error;
  if (fs::create_directory(folder, error)) return;
  if (!error) error = std::make_error_code(std::errc::file_exists);
  raiseFor(folder, error, base::errors::pathNotFound);
}

void deleteFile(const std::string& path) {
  const std::string file = toSystem(path);
  if (unlink(file.c_str()) != 0) raiseFor(file, lastError(), base::errors::fileNotFound);
}

std::string readFile(const std::string& path) {
  const std::string name = toSystem(path);
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(name.c_str(), "rbe"), std::fclose);
  if (!file) {
    const std::error_code reason = lastError();
    const std::string folder = fs::path(name).parent_path().string();
    const bool folderThere = folder.empty() || exists(folder);
    raiseFor(name, reason, folderThere ? base::errors::fileNotFound : base::errors::pathNotFound);
  }
  std::string bytes;
  char block[65536];
  while (const std::size_t count = std::fread(block, 1, sizeof block, file.get())) bytes.append(block, count);
  if (std::ferror(file.get()) != 0) raiseFor(name, lastError(), base::errors::fileAccess);
  return bytes;
}

std::vector<std::string> listFolder(const std::string& path) {
  const std::string folder = toSystem(path);
  std::error_code error;
  std::vector<std::string> names;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  if (error) raiseFor(folder, error, base::errors::pathNotFound);
  std::sort(names.begin(), names.end());
  return names;
}

std::string temporaryFolder() { return folderInLogicForm(folderOf("TMPDIR", "/tmp")); }

std::string internetCacheFolder() {
  return folderInLogicForm(folderOf("XDG_CACHE_HOME", home() + "/.cache"));
}

std::string userSettingsFolder() {
  return folderInLogicForm(folderOf("XDG_CONFIG_HOME", home() + "/.config") + "vellumark/");
}

std::string userDataFolder() {
  return folderInLogicForm(folderOf("XDG_DATA_HOME", home() + "/.local/share") + "vellumark/");
}

std::string executablePath() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  if (error) base::raise(base::errors::fileNotFound, "The program's own path is unknown: " + error.message());
  return fromSystem(program);
}

}  // namespace vellumark::platform
