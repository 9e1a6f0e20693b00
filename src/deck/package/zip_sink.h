#pragma once
// Where libzip writes a new archive.

#include <zip.h>

#include <fstream>
#include <memory>
#include <string>

namespace vellumark::deck {

struct DiscardZip {
  void operator()(zip_t* zip) const { zip_discard(zip); }
};
using ZipHandle = std::unique_ptr<zip_t, DiscardZip>;

/// A file that libzip writes right into its place, where by itself it would write a temporary one beside it:
/// nothing stands there that could be lost.
class ZipSink {
 public:
  explicit ZipSink(const std::string& path);
  ~ZipSink();
  ZipSink(const ZipSink&) = delete;
  ZipSink& operator=(const ZipSink&) = delete;

  /// An empty archive on the file, to be closed before the sink goes; nothing where error() says why.
  ZipHandle open();
  std::string error() { return zip_error_strerror(&error_); }

 private:
  static zip_int64_t call(void* sink, void* data, zip_uint64_t length, zip_source_cmd_t command);
  zip_int64_t answer(void* data, zip_uint64_t length, zip_source_cmd_t command);
  zip_int64_t write(const char* bytes, zip_uint64_t length);
  zip_int64_t seek(void* data, zip_uint64_t length);
  zip_int64_t fail(int code);

  std::ofstream file_;
  zip_uint64_t place_ = 0, size_ = 0;
  zip_error_t error_;
};

}  // namespace vellumark::deck
