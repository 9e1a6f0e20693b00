#pragma once
// The zip file under a package: reading entries, and writing a new file with raw copies of what stays.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vellumark::deck {

struct ZipEntry {
  std::string name;
  std::uint64_t size = 0;            ///< inflated, as the directory declares it
  std::uint64_t compressedSize = 0;  ///< as it stands in the file
  bool encrypted = false;
};

/// A zip file opened for reading. It stays readable when its path comes to name another file.
class ZipArchive {
 public:
  /// FormatError where the file is missing, unreadable or no zip file.
  explicit ZipArchive(const std::string& path);
  ~ZipArchive();
  ZipArchive(const ZipArchive&) = delete;
  ZipArchive& operator=(const ZipArchive&) = delete;

  const std::vector<ZipEntry>& entries() const { return entries_; }
  /// The size of the file when it was opened.
  std::uint64_t fileBytes() const { return fileBytes_; }
  /// The inflated bytes of an entry, its checksum verified; FormatError naming the entry where it is damaged,
  /// or longer than `limit` or than the directory declares.
  std::string read(std::size_t entry, std::uint64_t limit) const;

  /// Lets go of the file, so that it can be replaced; nothing can be read until reopen().
  void close();
  /// Opens the same entries again, where they now lie. FormatError where the file can't be read.
  void reopen(const std::string& path);
  /// Opens the file again where it lay.
  void reopen() { reopen(std::string(path_)); }

 private:
  friend class ZipWriter;
  struct Handle;
  std::string path_;
  std::unique_ptr<Handle> handle_;
  std::vector<ZipEntry> entries_;
  std::uint64_t fileBytes_ = 0;
};

/// Collects the entries of a new zip file in order and writes them in one go.
class ZipWriter {
 public:
  /// An entry of another archive as it stands: compressed bytes, time and attributes. The archive must
  /// outlive write().
  void copy(const ZipArchive& archive, std::size_t entry) { items_.push_back(Copied{&archive, entry}); }
  /// An entry of bytes, deflated.
  void add(std::string name, std::string bytes) {
    items_.push_back(Added{std::move(name), std::move(bytes)});
  }
  /// Writes the file. FormatError where that fails: with the name of a copied entry that turns out to be
  /// damaged, otherwise with the reason and `target`, the name under which the user knows the file.
  void write(const std::string& path, const std::string& target) const;

 private:
  struct Copied {
    const ZipArchive* archive;
    std::size_t entry;
  };
  struct Added {
    std::string name;
    std::string bytes;
  };
  struct Output;
  static void put(Output& output, const Copied& item);
  static void put(Output& output, const Added& item);

  std::vector<std::variant<Copied, Added>> items_;
};

}  // namespace vellumark::deck
