#include "deck/package/zip_sink.h"

#include <algorithm>
#include <cerrno>

#include "platform/paths.h"

namespace vellumark::deck {

ZipSink::ZipSink(const std::string& path)
    : file_(platform::pathOf(path), std::ios::binary | std::ios::out | std::ios::trunc) {
  zip_error_init(&error_);
}

ZipSink::~ZipSink() { zip_error_fini(&error_); }

ZipHandle ZipSink::open() {
  if (!file_) {
    fail(ZIP_ER_OPEN);
    return {};
  }
  zip_source_t* source = zip_source_function_create(&ZipSink::call, this, &error_);
  zip_t* zip = source ? zip_open_from_source(source, ZIP_CREATE | ZIP_TRUNCATE, &error_) : nullptr;
  if (source && !zip) zip_source_free(source);
  return ZipHandle(zip);
}

zip_int64_t ZipSink::call(void* sink, void* data, zip_uint64_t length, zip_source_cmd_t command) {
  return static_cast<ZipSink*>(sink)->answer(data, length, command);
}

zip_int64_t ZipSink::answer(void* data, zip_uint64_t length, zip_source_cmd_t command) {
  switch (command) {
    case ZIP_SOURCE_SUPPORTS:
      return zip_source_make_command_bitmap(
          ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR,
          ZIP_SOURCE_FREE, ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL, ZIP_SOURCE_SUPPORTS, ZIP_SOURCE_BEGIN_WRITE,
          ZIP_SOURCE_COMMIT_WRITE, ZIP_SOURCE_ROLLBACK_WRITE, ZIP_SOURCE_WRITE, ZIP_SOURCE_SEEK_WRITE,
          ZIP_SOURCE_TELL_WRITE, ZIP_SOURCE_REMOVE, -1);
    case ZIP_SOURCE_STAT:
      errno = ENOENT;  // nothing to read: the archive is new
      return fail(ZIP_ER_READ);
    case ZIP_SOURCE_WRITE:
      return write(static_cast<const char*>(data), length);
    case ZIP_SOURCE_TELL_WRITE:
      return static_cast<zip_int64_t>(place_);
    case ZIP_SOURCE_SEEK_WRITE:
      return seek(data, length);
    case ZIP_SOURCE_COMMIT_WRITE:
      file_.close();
      return file_ ? 0 : fail(ZIP_ER_WRITE);
    case ZIP_SOURCE_ERROR:
      return zip_error_to_data(&error_, data, length);
    case ZIP_SOURCE_BEGIN_WRITE:
    case ZIP_SOURCE_ROLLBACK_WRITE:
    case ZIP_SOURCE_REMOVE:
    case ZIP_SOURCE_FREE:
      return 0;
    default:
      return fail(ZIP_ER_OPNOTSUPP);
  }
}

zip_int64_t ZipSink::write(const char* bytes, zip_uint64_t length) {
  file_.write(bytes, static_cast<std::streamsize>(length));
  if (!file_) return fail(ZIP_ER_WRITE);
  place_ += length;
  size_ = std::max(size_, place_);
  return static_cast<zip_int64_t>(length);
}

zip_int64_t ZipSink::seek(void* data, zip_uint64_t length) {
  const zip_int64_t target = zip_source_seek_compute_offset(place_, size_, data, length, &error_);
  if (target < 0) return -1;
  file_.seekp(target);
  if (!file_) return fail(ZIP_ER_SEEK);
  place_ = static_cast<zip_uint64_t>(target);
  return 0;
}

zip_int64_t ZipSink::fail(int code) {
  zip_error_set(&error_, code, errno);
  return -1;
}

}  // namespace vellumark::deck
