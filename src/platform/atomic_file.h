#pragma once
// Writing a file so that its path always names the whole old or the whole new one.

#include <string>

namespace vellumark::platform {

/// When the bytes of a new file reach the disk: before it takes its name, or with the next flushFolder().
/// Until then a crash of the system may leave it empty, so that the latter is for what can be made again.
enum class Flush { now, later };

/// A new file beside its target. The caller writes to temporaryPath(); commit() brings the bytes safely to
/// the disk and gives the file the target's name. Without commit() the temporary file vanishes and the target
/// stays as it was. A target that is a link is followed. A file that is replaced hands owner, group and
/// rights on, as far as the user may give them. Where the program is ended by a signal the temporary file
/// vanishes as well; one that was left by a program that was killed is removed by the next AtomicFile in its
/// folder.
class AtomicFile {
 public:
  /// base::Error 75 where the folder can't be written to, or the target is a folder, a device or
  /// write-protected.
  explicit AtomicFile(const std::string& target);
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  /// Whether this system replaces, and moves, files that somebody has open.
  static bool replacesOpenFiles();

  const std::string& temporaryPath() const { return temporary_; }
  /// base::Error 75 where the system refuses; the target is then as before.
  void commit(Flush flush = Flush::now);

 private:
  std::string target_;
  std::string temporary_;
  bool committed_ = false;
  int lock_ = -1;  ///< tells others that the temporary file is in use, where the system needs telling
};

/// Brings everything that was written to a folder to the disk, on systems that do so for a whole folder;
/// others write it within seconds by themselves. A folder that isn't there is passed over.
void flushFolder(const std::string& folder);

}  // namespace vellumark::platform
