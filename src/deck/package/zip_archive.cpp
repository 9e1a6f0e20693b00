#include "deck/package/zip_archive.h"

#include <zip.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "deck/package/format_error.h"
#include "deck/package/zip_sink.h"
#include "platform/paths.h"

namespace vellumark::deck {
namespace {

struct CloseFile {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};

/// What a code of zip_open() means; asked at once, while the system's error number stands.
std::string message(int code) {
  zip_error_t error;
  zip_error_init_with_code(&error, code);
  std::string text = zip_error_strerror(&error);
  zip_error_fini(&error);
  return text;
}

/// Devices and pipes could block for ever, so that only ordinary files are opened at all.
void checkOrdinaryFile(const std::string& path) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(platform::pathOf(path), error);
  if (status.type() == std::filesystem::file_type::not_found)
    throw FormatError(path, "there is no such file");
  if (error) throw FormatError(path, "can't be read (" + error.message() + ")");
  if (std::filesystem::is_directory(status)) throw FormatError(path, "is a folder, not a .pptx file");
  if (!std::filesystem::is_regular_file(status)) throw FormatError(path, "is no ordinary file");
}

/// Why a file that is no zip file is none, in words that help.
std::string notZip(const std::string& path) {
  constexpr std::array<unsigned char, 8> compound = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};
  std::array<char, 8> head{};
  std::ifstream file(platform::pathOf(path), std::ios::binary);
  file.read(head.data(), head.size());
  if (file.gcount() == 0) return "is empty: it holds no presentation";
  if (std::memcmp(head.data(), compound.data(), compound.size()) == 0) {
    return "is protected by a password or in the old binary format; save it as .pptx first";
  }
  return "is no .pptx file, or a damaged one: its zip directory can't be read";
}

}  // namespace

struct ZipArchive::Handle {
  ZipHandle zip;
};

void ZipArchive::close() { handle_->zip.reset(); }

void ZipArchive::reopen(const std::string& path) {
  checkOrdinaryFile(path);
  int code = 0;
  zip_t* zip = zip_open(path.c_str(), ZIP_RDONLY, &code);
  if (!zip) {
    const bool unreadable = code == ZIP_ER_NOENT || code == ZIP_ER_OPEN || code == ZIP_ER_MEMORY;
    throw FormatError(path, unreadable ? "can't be read (" + message(code) + ")" : notZip(path));
  }
  handle_->zip.reset(zip);
  path_ = path;
}

ZipArchive::ZipArchive(const std::string& path) : handle_(std::make_unique<Handle>()) {
  reopen(path);
  std::error_code unknown;
  const std::uintmax_t size = std::filesystem::file_size(platform::pathOf(path), unknown);
  if (!unknown) fileBytes_ = size;
  zip_t* zip = handle_->zip.get();
  const zip_int64_t count = std::max<zip_int64_t>(zip_get_num_entries(zip, 0), 0);
  entries_.reserve(static_cast<std::size_t>(count));
  for (zip_int64_t i = 0; i < count; ++i) {
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_stat_index(zip, static_cast<zip_uint64_t>(i), 0, &stat) != 0 || !stat.name) {
      throw FormatError(path, "the zip directory is damaged at entry " + std::to_string(i + 1));
    }
    entries_.push_back({stat.name, stat.size, stat.comp_size, stat.encryption_method != ZIP_EM_NONE});
  }
}

ZipArchive::~ZipArchive() = default;

std::string ZipArchive::read(std::size_t entry, std::uint64_t limit) const {
  const ZipEntry& info = entries_[entry];
  zip_t* zip = handle_->zip.get();
  const std::unique_ptr<zip_file_t, CloseFile> file(zip_fopen_index(zip, entry, 0));
  if (!file) throw FormatError(info.name, std::string("can't be unpacked (") + zip_strerror(zip) + ")");
  // Space grows with what really comes out, since the declared size may be a lie; but what goes beyond it is
  // refused, so that the limits on declared sizes hold for real ones.
  constexpr std::uint64_t block = 64 * 1024;
  std::string bytes;
  for (std::uint64_t size = std::min(info.size + 1, block);;) {
    const std::size_t have = bytes.size();
    bytes.resize(have + size);
    const zip_int64_t got = zip_fread(file.get(), bytes.data() + have, size);
    if (got < 0) {
      throw FormatError(info.name, std::string("is damaged (") + zip_file_strerror(file.get()) + ")");
    }
    bytes.resize(have + static_cast<std::size_t>(got));
    if (got == 0) return bytes;
    if (bytes.size() > limit) {
      throw FormatError(info.name, "is larger than " + std::to_string(limit) + " bytes");
    }
    if (bytes.size() > info.size) {
      throw FormatError(info.name, "is damaged (it unpacks to more than the zip directory says)");
    }
    size = std::clamp<std::uint64_t>(bytes.size(), block, 256 * block);
  }
}

struct ZipWriter::Output {
  ZipHandle zip;
  const std::string& target;

  [[noreturn]] void fail(const std::string& reason) const {
    throw FormatError(target, "can't be written (" + reason + ")");
  }
  [[noreturn]] void fail() const { fail(zip_strerror(zip.get())); }

  /// Appends an entry; the archive owns the source from then on.
  zip_uint64_t append(const std::string& name, zip_source_t* source) const {
    if (!source) fail();
    const zip_int64_t index = zip_file_add(zip.get(), name.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
      zip_source_free(source);
      fail(name + ": " + zip_strerror(zip.get()));
    }
    return static_cast<zip_uint64_t>(index);
  }
};

void ZipWriter::put(Output& output, const Copied& item) {
  zip_t* from = item.archive->handle_->zip.get();
  zip_t* to = output.zip.get();
  zip_stat_t stat;
  if (zip_stat_index(from, item.entry, 0, &stat) != 0) output.fail(zip_strerror(from));
  const zip_uint64_t index = output.append(item.archive->entries()[item.entry].name,
                                           zip_source_zip(to, from, item.entry, ZIP_FL_COMPRESSED, 0, -1));
  // Without this libzip would deflate what was stored.
  if (zip_set_file_compression(to, index, stat.comp_method, 0) != 0) output.fail();
  zip_uint8_t system = 0;
  zip_uint32_t attributes = 0;
  if (zip_file_get_external_attributes(from, item.entry, 0, &system, &attributes) == 0) {
    zip_file_set_external_attributes(to, index, 0, system, attributes);
  }
}

void ZipWriter::put(Output& output, const Added& item) {
  zip_t* to = output.zip.get();
  const zip_uint64_t index =
      output.append(item.name, zip_source_buffer(to, item.bytes.data(), item.bytes.size(), 0));
  // The first day that zip files know, as Office writes it: the same deck gives the same bytes at any time.
  constexpr zip_uint16_t firstDay = (1 << 5) | 1;
  zip_file_set_dostime(to, index, 0, firstDay, 0);
}

void ZipWriter::write(const std::string& path, const std::string& target) const {
  ZipSink sink(path);
  Output output{sink.open(), target};
  if (!output.zip) output.fail(sink.error());
  for (const auto& item : items_) {
    std::visit([&](const auto& one) { put(output, one); }, item);
  }
  if (zip_close(output.zip.get()) == 0) {
    output.zip.release();  // closing has freed it
    return;
  }
  // libzip verifies the checksums of stored entries as it copies them, but doesn't say which one was wrong.
  // Reading them once more tells.
  const std::string reason = zip_strerror(output.zip.get());
  for (const auto& item : items_) {
    const auto* copied = std::get_if<Copied>(&item);
    if (!copied) continue;
    const ZipEntry& entry = copied->archive->entries()[copied->entry];
    if (entry.size == entry.compressedSize) copied->archive->read(copied->entry, entry.size);
  }
  output.fail(reason);
}

}  // namespace vellumark::deck
