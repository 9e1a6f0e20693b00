#include "same_picture.h"

#include <cmath>
#include <stdexcept>

namespace {

bool shows(const QString& path, const QImage& image) {
  const QImage file = QImage(path).convertToFormat(QImage::Format_ARGB32_Premultiplied);
  const QImage wanted = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  if (file.size() != wanted.size()) return false;
  constexpr double tolerance = 3;  // of 255, on average
  double difference = 0;
  for (int y = 0; y < wanted.height(); ++y) {
    const uchar* a = file.constScanLine(y);
    const uchar* b = wanted.constScanLine(y);
    for (int i = 0; i < 4 * wanted.width(); ++i) difference += std::abs(a[i] - b[i]);
  }
  return difference <= tolerance * 4 * wanted.width() * wanted.height();
}

}  // namespace

void requireSame(const QString& path, const QImage& picture) {
  if (!shows(path, picture)) {
    throw std::runtime_error(path.toStdString() + " shows something else; draw it anew");
  }
}
