#include "ui/qt/canvas_painter.h"

#include <QCache>
#include <QDateTime>
#include <QFileInfo>
#include <QPainter>

#include "platform/paths.h"
#include "ui/qt/conversions.h"

namespace vellumark::ui {
namespace qt {
namespace {

/// A picture file, read once for each version of it; a null picture where it can't be read.
QImage pictureOf(const std::string& path) {
  constexpr int pictures = 64;
  static QCache<QString, QImage> read(pictures);
  const QFileInfo file(toQt(platform::toSystem(path)));
  const QString key = file.filePath() + u'|' + QString::number(file.lastModified().toMSecsSinceEpoch());
  if (const QImage* known = read.object(key)) return *known;
  const QImage picture = QImage(file.filePath()).convertToFormat(QImage::Format_ARGB32_Premultiplied);
  read.insert(key, new QImage(picture));
  return picture;
}

/// Draws one command after the other. Points are pixels of 96 to the inch, so that a canvas looks the same on
/// every screen.
class CanvasPainter {
 public:
  explicit CanvasPainter(QPainter& painter) : painter_(painter) {}

  void operator()(const Canvas::Rectangle& box) const {
    painter_.fillRect(QRectF(box.x, box.y, box.width, box.height), toQt(box.fill));
  }

  void operator()(const Canvas::Ellipse& ellipse) const {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(toQt(ellipse.fill));
    painter_.drawEllipse(QRectF(ellipse.x, ellipse.y, ellipse.width, ellipse.height));
  }

  void operator()(const Canvas::Line& line) const {
    // Upright and level lines fill whole pixels instead of two halves.
    const bool slanted = line.x1 != line.x2 && line.y1 != line.y2;
    painter_.setRenderHint(QPainter::Antialiasing, slanted);
    painter_.setPen(QPen(toQt(line.color), line.width, Qt::SolidLine, Qt::FlatCap));
    painter_.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
    painter_.setRenderHint(QPainter::Antialiasing, true);
  }

  void operator()(const Canvas::Text& text) const {
    QFont font = scaledFont(1, text.bold);
    font.setPixelSize(qMax(1, qRound(text.size * 96 / 72)));
    painter_.setFont(font);
    painter_.setPen(toQt(text.color));
    painter_.drawText(QPointF(text.x, text.y + QFontMetricsF(font).ascent()), toQt(text.text));
  }

  void operator()(const Canvas::Image& image) const {
    const QImage picture = pictureOf(image.path);
    if (picture.isNull()) return;
    painter_.drawImage(QRectF(image.x, image.y, image.width, image.height), picture);
  }

  void operator()(const Canvas::Pixels& pixels) const {
    QImage picture(pixels.columns, pixels.rows(), QImage::Format_RGB32);
    if (picture.isNull()) return;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        picture.setPixelColor(x, y, toQt(pixels.colors[static_cast<std::size_t>(y * pixels.columns + x)]));
      }
    }
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter_.drawImage(QRectF(pixels.x, pixels.y, pixels.width, pixels.height), picture);
    painter_.setRenderHint(QPainter::SmoothPixmapTransform, true);
  }

  void operator()(const Canvas::Copy& copy) const {
    painter_.save();
    painter_.translate(copy.x, copy.y);
    paintCanvas(*copy.source, painter_);
    painter_.restore();
  }

 private:
  QPainter& painter_;
};

}  // namespace

void paintCanvas(const Canvas& canvas, QPainter& painter) {
  painter.save();
  painter.setClipRect(QRect(0, 0, canvas.width(), canvas.height()), Qt::IntersectClip);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  const CanvasPainter draw(painter);
  for (const Canvas::Command& command : canvas.commands()) std::visit(draw, command);
  painter.restore();
}

}  // namespace qt

QImage renderCanvas(const Canvas& canvas) {
  QImage image(canvas.width(), canvas.height(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  if (image.isNull()) return image;
  QPainter painter(&image);
  qt::paintCanvas(canvas, painter);
  return image;
}

}  // namespace vellumark::ui
