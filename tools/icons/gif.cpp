#include "gif.h"

#include <QList>
#include <algorithm>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

namespace {

void append16(QByteArray& bytes, int number) {
  bytes.append(static_cast<char>(number & 0xFF));
  bytes.append(static_cast<char>(number >> 8 & 0xFF));
}

/// Codes of growing width, the lowest bit first, in blocks of at most 255 bytes.
class CodeWriter {
 public:
  explicit CodeWriter(QByteArray& bytes) : bytes_(bytes) {}
  void put(int code, int width) {
    pending_ |= static_cast<std::uint32_t>(code) << bits_;
    for (bits_ += width; bits_ >= 8; bits_ -= 8, pending_ >>= 8) put(pending_ & 0xFF);
  }
  void end() {
    if (bits_ > 0) put(pending_ & 0xFF);
    flush();
    bytes_.append('\0');
  }

 private:
  void put(std::uint32_t byte) {
    constexpr qsizetype longest = 255;
    block_.append(static_cast<char>(byte));
    if (block_.size() == longest) flush();
  }
  void flush() {
    if (block_.isEmpty()) return;
    bytes_.append(static_cast<char>(block_.size()));
    bytes_.append(block_);
    block_.clear();
  }

  QByteArray& bytes_;
  QByteArray block_;
  std::uint32_t pending_ = 0;
  int bits_ = 0;
};

constexpr qsizetype colors = 256;

/// The colours that most pixels have.
QList<QRgb> commonColors(const QImage& picture) {
  std::map<QRgb, int> pixels;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ++pixels[picture.pixel(x, y)];
  }
  std::vector<std::pair<int, QRgb>> order;
  for (const auto& [color, count] : pixels) order.emplace_back(-count, color);
  std::ranges::sort(order);
  QList<QRgb> table;
  for (const auto& [count, color] : order) {
    if (table.size() < colors) table.append(color);
  }
  return table;
}

/// The pixels as the format compresses them: each code stands for a stretch that came before.
void compress(const QImage& picture, QByteArray& bytes) {
  constexpr int depth = 8, clear = 1 << depth, end = clear + 1, most = 1 << 12;
  bytes.append(static_cast<char>(depth));
  CodeWriter writer(bytes);
  std::map<std::pair<int, int>, int> known;  // a code and the pixel behind it
  int next = end + 1, width = depth + 1, stretch = -1;
  writer.put(clear, width);
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const int pixel = picture.pixelIndex(x, y);
      if (stretch < 0) {
        stretch = pixel;
        continue;
      }
      if (const auto found = known.find({stretch, pixel}); found != known.end()) {
        stretch = found->second;
        continue;
      }
      writer.put(stretch, width);
      if (next == most) {
        writer.put(clear, width);
        known.clear();
        next = end + 1;
        width = depth + 1;
      } else {
        // The reader learns this code one step later, and then counts in wider ones.
        if (next == 1 << width) ++width;
        known.emplace(std::pair(stretch, pixel), next++);
      }
      stretch = pixel;
    }
  }
  writer.put(stretch, width);
  writer.put(end, width);
  writer.end();
}

}  // namespace

QByteArray gif(const QImage& picture) {
  const QImage indexed =
      picture.convertToFormat(QImage::Format_Indexed8, commonColors(picture), Qt::ThresholdDither);
  QByteArray bytes("GIF89a");
  append16(bytes, indexed.width());
  append16(bytes, indexed.height());
  bytes.append("\xF7\0\0", 3);  // a table of 256 colours
  for (qsizetype i = 0; i < colors; ++i) {
    const QRgb color = i < indexed.colorCount() ? indexed.color(static_cast<int>(i)) : qRgb(0, 0, 0);
    for (const int part : {qRed(color), qGreen(color), qBlue(color)}) bytes.append(static_cast<char>(part));
  }
  bytes.append(',');
  append16(bytes, 0);
  append16(bytes, 0);
  append16(bytes, indexed.width());
  append16(bytes, indexed.height());
  bytes.append('\0');
  compress(indexed, bytes);
  bytes.append(';');
  return bytes;
}
