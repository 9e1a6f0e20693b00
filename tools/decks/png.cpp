#include "decks/png.h"

#include <zlib.h>

#include <cstdint>
#include <stdexcept>

namespace vellumark::decks {
namespace {

std::string bigEndian(std::uint32_t value) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift & 0xFF);
  return bytes;
}

std::string chunk(const std::string& type, const std::string& data) {
  const std::string checked = type + data;
  const auto crc =
      crc32(0, reinterpret_cast<const Bytef*>(checked.data()), static_cast<uInt>(checked.size()));
  return bigEndian(static_cast<std::uint32_t>(data.size())) + checked +
         bigEndian(static_cast<std::uint32_t>(crc));
}

std::string deflated(const std::string& data) {
  uLongf size = compressBound(data.size());
  std::string packed(size, '\0');
  if (compress(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(data.data()),
               data.size()) != Z_OK) {
    throw std::runtime_error("png: can't deflate");
  }
  packed.resize(size);
  return packed;
}

}  // namespace

std::string png(int width, int height, const std::string& color) {
  const auto rgb = static_cast<std::uint32_t>(std::stoul(color, nullptr, 16));
  const std::string pixel = bigEndian(rgb).substr(1);
  std::string row(1, '\0');  // no filter
  for (int x = 0; x < width; ++x) row += pixel;
  std::string rows;
  for (int y = 0; y < height; ++y) rows += row;

  const std::string eightBitRgb{8, 2, 0, 0, 0};
  return "\x89PNG\r\n\x1a\n" + chunk("IHDR", bigEndian(width) + bigEndian(height) + eightBitRgb) +
         chunk("IDAT", deflated(rows)) + chunk("IEND", {});
}

}  // namespace vellumark::decks
