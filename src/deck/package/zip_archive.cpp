#include "deck/package/zip_archive.h"

#include <zip.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "deck/package/format_error.h"

namespace vellumark::deck {
namespace {

std::string message(int code) {
  zip_error_t error;
  zip_error_init_with_code(&error, code);
  std::string text = zip_error_strerror(&error);
  zip_error_fini(&error);
  return text;
}

/// Why a file that is no zip file is none, in words that help.
std::string notZip(const std::string& path) {
  constexpr std::array<unsigned char, 8> compound = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
  if (std::filesystem::is_directory(path)) return "is a folder, no presentation";
  std::array<char, 8> head{};
  std::ifstream file(path, std::ios::binary);
  file.read(head.data(), head.size());
  if (file.gcount() == 0) return "is empty: it holds no presentation";
  if (std::memcmp(head.data(), compound.data(), compound.size()) == 0) {
    return "is protected by a password or in the old binary format: save it as .pptx without a password "
           "first";
  }
  return "is no .pptx file, or a damaged one: it is no zip archive";
}

struct FileHandle {
  explicit FileHandle(zip_file_t* file) : file(file) {}
  ~FileHandle() {
    if (file) zip_fclose(file);
  }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;
  zip_file_t* file;
};

}  // namespace

struct ZipArchive::Handle {
  zip_t* zip = nullptr;
  ~Handle() {
    if (zip) zip_discard(zip);
  }
};

ZipArchive::ZipArchive(const std::string& path) : handle_(std::make_unique<Handle>()) {
  int code = 0;
  handle_->zip = zip_open(path.c_str(), ZIP_RDONLY, &code);
  if (!handle_->zip) {
    const bool unreadable =
        code == ZIP_ER_NOENT || code == ZIP_ER_OPEN || code == ZIP_ER_READ || code == ZIP_ER_MEMORY;
    throw FormatError(path, code == ZIP_ER_NOENT ? "there is no such file"
                            : unreadable         ? "can't be read (" + message(code) + ")"
                                                 : notZip(path));
  }
  const zip_int64_t count = zip_get_num_entries(handle_->zip, 0);
  entries_.reserve(static_cast<std::size_t>(std::max<zip_int64_t>(count, 0)));
  for (zip_int64_t i = 0; i < count; ++i) {
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_stat_index(handle_->zip, static_cast<zip_uint64_t>(i), 0, &stat) != 0 || !stat.name) {
      throw FormatError(path, "the zip directory is damaged at entry " + std::to_string(i + 1));
    }
    entries_.push_back({stat.name, stat.size, stat.comp_size, stat.encryption_method != ZIP_EM_NONE});
  }
}

ZipArchive::~ZipArchive() = default;

std::string ZipArchive::read(std::size_t entry, std::uint64_t limit) const {
  const ZipEntry& info = entries_[entry];
  if (info.encrypted) throw FormatError(info.name, "is encrypted: save the deck without a password first");
  const FileHandle handle(zip_fopen_index(handle_->zip, entry, 0));
  if (!handle.file) {
    throw FormatError(info.name, std::string("can't be unpacked (") + zip_strerror(handle_->zip) + ")");
  }
  // The declared size is only a hint: the limit holds for what really comes out.
  constexpr std::uint64_t block = 64 * 1024;
  std::string bytes;
  for (std::uint64_t size = std::min(info.size + 1, block);;) {
    const std::size_t have = bytes.size();
    bytes.resize(have + size);
    const zip_int64_t got = zip_fread(handle.file, bytes.data() + have, size);
    if (got < 0)
      throw FormatError(info.name, std::string("is damaged (") + zip_file_strerror(handle.file) + ")");
    bytes.resize(have + static_cast<std::size_t>(got));
    if (got == 0) break;
    if (bytes.size() > limit)
      throw FormatError(info.name, "is larger than " + std::to_string(limit >> 20) + " MiB");
    size = std::max(block, std::min<std::uint64_t>(bytes.size(), 16 * 1024 * 1024));
  }
  return bytes;
}

void ZipWriter::write(const std::string& path) const {
  int code = 0;
  zip_t* zip = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code);
  if (!zip) throw FormatError(path, "can't be written (" + message(code) + ")");
  const auto fail = [&](const std::string& reason) {
    zip_discard(zip);
    throw FormatError(path, "can't be written (" + reason + ")");
  };
  for (const auto& item : items_) {
    const auto* copied = std::get_if<Copied>(&item);
    const auto* added = std::get_if<Added>(&item);
    zip_t* from = copied ? copied->archive->handle_->zip : nullptr;
    zip_source_t* source = copied ? zip_source_zip(zip, from, copied->entry, ZIP_FL_COMPRESSED, 0, -1)
                                  : zip_source_buffer(zip, added->bytes.data(), added->bytes.size(), 0);
    if (!source) fail(zip_strerror(zip));
    const std::string& name = copied ? copied->archive->entries()[copied->entry].name : added->name;
    const zip_int64_t index = zip_file_add(zip, name.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
      zip_source_free(source);
      fail(name + ": " + zip_strerror(zip));
    }
    if (copied) {
      zip_uint8_t system = 0;
      zip_uint32_t attributes = 0;
      if (zip_file_get_external_attributes(from, copied->entry, 0, &system, &attributes) == 0) {
        zip_file_set_external_attributes(zip, static_cast<zip_uint64_t>(index), 0, system, attributes);
      }
    }
  }
  if (zip_close(zip) != 0) fail(zip_strerror(zip));
}

}  // namespace vellumark::deck
