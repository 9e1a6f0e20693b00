#pragma once
// A folder that lives as long as its object.

#include <filesystem>
#include <string>

namespace vellumark::test {

class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& root() const { return root_; }
  /// The path of `name` in the folder; folders on the way are made.
  std::string path(const std::string& name) const;
  /// Writes a file and returns its path.
  std::string write(const std::string& name, const std::string& bytes) const;

 private:
  std::filesystem::path root_;
};

/// All bytes of a file; std::runtime_error where it can't be read.
std::string readFile(const std::string& path);

}  // namespace vellumark::test
