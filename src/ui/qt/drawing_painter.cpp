#include "ui/qt/drawing_painter.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/error.h"
#include "platform/atomic_file.h"
#include "ui/qt/conversions.h"

namespace vellumark::ui::qt {
namespace {

using platform::Brush;
using platform::Drawing;
using platform::DrawPoint;
using platform::Path;
using platform::Pen;

/// Pixels that a picture in a file may have.
constexpr qint64 mostPixels = 50'000'000;

QPointF point(DrawPoint p) { return {p.x, p.y}; }
QColor color(platform::Argb argb) { return QColor::fromRgba(argb); }

QPainterPath toPath(const Path& path) {
  QPainterPath made;
  for (const Path::Segment& segment : path.segments()) {
    const auto& p = segment.points;
    switch (segment.step) {
      case Path::Step::move:
        made.moveTo(point(p[0]));
        break;
      case Path::Step::line:
        made.lineTo(point(p[0]));
        break;
      case Path::Step::curve:
        made.cubicTo(point(p[0]), point(p[1]), point(p[2]));
        break;
      case Path::Step::close:
        made.closeSubpath();
        break;
    }
  }
  return made;
}

QBrush toBrush(const Brush& brush) {
  const auto withStops = [&](QGradient gradient) {
    for (const platform::GradientStop& stop : brush.stops) gradient.setColorAt(stop.place, color(stop.color));
    return QBrush(gradient);
  };
  switch (brush.kind) {
    case Brush::Kind::linear:
      return withStops(QLinearGradient(point(brush.from), point(brush.to)));
    case Brush::Kind::radial:
      return withStops(QRadialGradient(point(brush.from),
                                       std::hypot(brush.to.x - brush.from.x, brush.to.y - brush.from.y)));
    case Brush::Kind::solid:
      break;
  }
  return color(brush.color);
}

/// `scale` is how many pixels a point has.
QPen toPen(const Pen& pen, double scale) {
  QPen made(color(pen.color), pen.width);
  // Dashes that are too fine to be told apart make a whole line.
  const double pattern = std::accumulate(pen.dashes.begin(), pen.dashes.end(), 0.0) * pen.width * scale;
  if (pattern > 0.5) made.setDashPattern(QList<qreal>(pen.dashes.begin(), pen.dashes.end()));
  made.setCapStyle(pen.cap == Pen::Cap::round    ? Qt::RoundCap
                   : pen.cap == Pen::Cap::square ? Qt::SquareCap
                                                 : Qt::FlatCap);
  made.setJoinStyle(pen.join == Pen::Join::round   ? Qt::RoundJoin
                    : pen.join == Pen::Join::bevel ? Qt::BevelJoin
                                                   : Qt::MiterJoin);
  return made;
}

/// Null where the bytes are no picture that can be read, or one of more pixels than a slide can show.
QImage readImage(const std::string& bytes) {
  QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&data);
  QImageReader reader(&buffer);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isValid() && qint64{size.width()} * size.height() > mostPixels) return {};
  return reader.read();
}

/// A picture that is drawn much smaller than it is, in about the size that it is drawn in (pixels): the
/// painter would pass over most of its pixels.
QImage reduced(const QImage& image, double width, double height) {
  if (image.isNull() || (image.width() < 2 * width && image.height() < 2 * height)) return image;
  const auto side = [](int own, double drawn) {
    return std::clamp(static_cast<int>(std::ceil(drawn)), 1, own);
  };
  return image.scaled(side(image.width(), width), side(image.height(), height), Qt::IgnoreAspectRatio,
                      Qt::SmoothTransformation);
}

class DrawingPainter {
 public:
  explicit DrawingPainter(QPainter& painter)
      : painter_(painter), scale_(std::sqrt(std::abs(painter.transform().determinant()))) {}

  void operator()(const Drawing::Fill& fill) const {
    QPainterPath path = toPath(fill.path);
    path.setFillRule(fill.evenOdd ? Qt::OddEvenFill : Qt::WindingFill);
    painter_.fillPath(path, toBrush(fill.brush));
  }

  void operator()(const Drawing::Stroke& stroke) const {
    painter_.strokePath(toPath(stroke.path), toPen(stroke.pen, scale_));
  }

  void operator()(const Drawing::Picture& picture) const {
    if (!picture.bytes) return;
    const platform::Affine& map = picture.map;
    const double shareX = 1 - picture.cropLeft - picture.cropRight;
    const double shareY = 1 - picture.cropTop - picture.cropBottom;
    if (shareX <= 0 || shareY <= 0) return;
    const QImage image = reduced(readImage(*picture.bytes), std::hypot(map.xx, map.yx) * scale_ / shareX,
                                 std::hypot(map.xy, map.yy) * scale_ / shareY);
    if (image.isNull()) return;
    const double width = image.width(), height = image.height();
    const QRectF shown(width * picture.cropLeft, height * picture.cropTop, width * shareX, height * shareY);
    painter_.save();
    if (!picture.clip.empty()) painter_.setClipPath(toPath(picture.clip), Qt::IntersectClip);
    painter_.setTransform(QTransform(map.xx, map.yx, map.xy, map.yy, map.dx, map.dy), true);
    painter_.setOpacity(painter_.opacity() * picture.opacity);
    painter_.drawImage(QRectF(0, 0, 1, 1), image, shown);
    painter_.restore();
  }

 private:
  QPainter& painter_;
  double scale_;
};

}  // namespace

void paintDrawing(const platform::Drawing& drawing, QPainter& painter) {
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  const DrawingPainter draw(painter);
  for (const Drawing::Command& command : drawing.commands) std::visit(draw, command);
  painter.restore();
}

bool paintPng(const platform::Drawing& drawing, const PngFile& file) {
  QImage image(file.width, file.height, QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return false;
  image.fill(color(file.ground));
  {
    QPainter painter(&image);
    const platform::Affine& map = file.toPixels;
    painter.setTransform(QTransform(map.xx, map.yx, map.xy, map.yy, map.dx, map.dy));
    paintDrawing(drawing, painter);
  }
  // Pictures come in hundreds, and can be painted again.
  try {
    platform::AtomicFile out(file.path);
    if (!image.save(toQt(out.temporaryPath()), "PNG")) return false;
    out.commit(platform::Flush::later);
    return true;
  } catch (const base::Error&) {
    return false;
  }
}

}  // namespace vellumark::ui::qt
