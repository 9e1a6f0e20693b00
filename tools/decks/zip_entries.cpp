#include "decks/zip_entries.h"

#include <zip.h>

#include <memory>
#include <stdexcept>

namespace vellumark::decks {
namespace {

constexpr zip_uint16_t firstDay = 1 << 5 | 1;  // 1 January 1980, the first day that a zip file can tell

[[noreturn]] void fail(const std::string& what) { throw std::runtime_error("zip: " + what); }

std::string readEntry(zip_t* archive, zip_uint64_t index, zip_uint64_t size, zip_flags_t flags) {
  std::unique_ptr<zip_file_t, decltype(&zip_fclose)> file(zip_fopen_index(archive, index, flags),
                                                          &zip_fclose);
  if (!file) fail(zip_strerror(archive));
  std::string bytes(size, '\0');
  if (zip_fread(file.get(), bytes.data(), size) != static_cast<zip_int64_t>(size))
    fail("an entry ends early");
  char beyond;  // the checksum is compared at the end of the entry
  if (zip_fread(file.get(), &beyond, 1) != 0) fail("an entry is broken");
  return bytes;
}

}  // namespace

ZipEntries readZip(const std::string& bytes) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
  std::unique_ptr<zip_t, decltype(&zip_discard)> archive(
      source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr, &zip_discard);
  if (!archive) {
    if (source) zip_source_free(source);
    fail(zip_error_strerror(&error));
  }
  ZipEntries entries;
  for (zip_int64_t i = 0; i < zip_get_num_entries(archive.get(), 0); ++i) {
    zip_stat_t stat;
    if (zip_stat_index(archive.get(), i, 0, &stat) != 0) fail(zip_strerror(archive.get()));
    ZipEntry entry{readEntry(archive.get(), i, stat.size, 0),
                   readEntry(archive.get(), i, stat.comp_size, ZIP_FL_COMPRESSED)};
    if (!entries.emplace(stat.name, std::move(entry)).second) fail(std::string(stat.name) + " stands twice");
  }
  return entries;
}

std::string writeZip(const ZipEntries& entries) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, &error);
  if (!target) fail(zip_error_strerror(&error));
  zip_source_keep(target);  // closing the archive gives one reference back
  std::unique_ptr<zip_source_t, decltype(&zip_source_free)> keep(target, &zip_source_free);
  std::unique_ptr<zip_t, decltype(&zip_discard)> archive(zip_open_from_source(target, ZIP_TRUNCATE, &error),
                                                         &zip_discard);
  if (!archive) fail(zip_error_strerror(&error));

  // "[" sorts before the lower-case letters and "_", so that the content types come first.
  for (const auto& [name, entry] : entries) {
    zip_source_t* source = zip_source_buffer(archive.get(), entry.bytes.data(), entry.bytes.size(), 0);
    const zip_int64_t index = zip_file_add(archive.get(), name.c_str(), source, ZIP_FL_ENC_UTF_8);
    if (index < 0) fail(zip_strerror(archive.get()));
    zip_file_set_dostime(archive.get(), index, 0, firstDay, 0);
    zip_set_file_compression(archive.get(), index, ZIP_CM_DEFLATE, 9);
  }
  if (zip_close(archive.get()) != 0) fail(zip_strerror(archive.get()));
  (void)archive.release();

  zip_stat_t stat;
  zip_stat_init(&stat);
  if (zip_source_stat(target, &stat) != 0 || zip_source_open(target) != 0) fail("can't be read back");
  std::string bytes(stat.size, '\0');
  const bool whole =
      zip_source_read(target, bytes.data(), bytes.size()) == static_cast<zip_int64_t>(bytes.size());
  zip_source_close(target);
  if (!whole) fail("can't be read back");
  return bytes;
}

}  // namespace vellumark::decks
