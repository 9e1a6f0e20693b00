// Draws icons from their source, a file like icons.txt beside this one, as PNG files:
//
//   draw_icons SOURCE FOLDER [SHEET.png]
//
// writes NAME.png (32 pixels) and NAME_16.png for each icon, and with a third argument all of them on one
// sheet.
//
//   draw_icons --masked SOURCE FOLDER
//
// writes NAME.png (16 pixels, black where nothing is drawn) and NAME_mask.png (white there, black elsewhere),
// which is how toolbars before the ribbon take pictures.
//
//   draw_icons [--masked] --check SOURCE FOLDER
//
// tells whether the files in the folder are what the source draws.

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <utility>
#include <vector>

#include "same_picture.h"

namespace {

struct Icon {
  QString name;
  QStringList commands;
};

QColor colorOf(const QString& name) {
  static const std::pair<const char*, const char*> colors[] = {
      {"ink", "#2B3A4A"},   {"blue", "#2F6DB5"},   {"sky", "#9CC3EA"},
      {"gray", "#8A97A6"},  {"orange", "#E07B1A"}, {"red", "#C8372D"},
      {"green", "#3A8F5C"}, {"yellow", "#F2C037"}, {"white", "#FFFFFF"}};
  for (const auto& [known, value] : colors) {
    if (name == QLatin1String(known)) return QColor(QLatin1String(value));
  }
  throw std::runtime_error("no colour \"" + name.toStdString() + "\"");
}

/// One command with its numbers, drawn on a grid of 32 by 32.
class Command {
 public:
  explicit Command(const QString& text) {
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    if (words.size() < 2) throw std::runtime_error("no command \"" + text.toStdString() + "\"");
    kind_ = words[0];
    color_ = colorOf(words[1]);
    for (qsizetype i = 2; i < words.size(); ++i) {
      bool isNumber = false;
      const double number = words[i].toDouble(&isNumber);
      if (isNumber && !(kind_ == u"T" && numbers_.size() == 3)) {
        numbers_.push_back(number);
      } else {
        text_ = words[i];
      }
    }
  }

  void draw(QPainter& painter) const {
    const double width = 2;
    const QPen pen(color_, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    const bool filled = kind_ == u"R" || kind_ == u"E" || kind_ == u"P" || kind_ == u"U";
    painter.setPen(filled ? QPen(Qt::NoPen) : pen);
    painter.setBrush(filled ? QBrush(color_) : QBrush(Qt::NoBrush));
    if (kind_ == u"R") return painter.drawRect(rect(0));
    if (kind_ == u"S") return painter.drawRect(rect(width / 2));
    if (kind_ == u"E") return painter.drawEllipse(rect(0));
    if (kind_ == u"O") return painter.drawEllipse(rect(width / 2));
    if (kind_ == u"U") return painter.drawRoundedRect(rect(0), at(4), at(4));
    if (kind_ == u"V") return painter.drawRoundedRect(rect(width / 2), at(4), at(4));
    if (kind_ == u"P" || kind_ == u"Q") return painter.drawPolygon(points());
    if (kind_ == u"W") return painter.drawPolyline(points());
    if (kind_ == u"D") {
      QPen dashed = pen;
      dashed.setDashPattern({2, 1});
      painter.setPen(dashed);
      return painter.drawPolyline(points());
    }
    if (kind_ == u"A") return drawArrow(painter);
    if (kind_ == u"T") return drawText(painter);
    throw std::runtime_error("no command \"" + kind_.toStdString() + "\"");
  }

 private:
  double at(std::size_t index) const {
    if (index >= numbers_.size()) throw std::runtime_error("too few numbers behind " + kind_.toStdString());
    return numbers_[index];
  }
  QRectF rect(double inset) const {
    return {at(0) + inset, at(1) + inset, at(2) - 2 * inset, at(3) - 2 * inset};
  }
  QPolygonF points() const {
    QPolygonF polygon;
    for (std::size_t i = 0; i + 1 < numbers_.size(); i += 2) polygon << QPointF(at(i), at(i + 1));
    return polygon;
  }

  void drawArrow(QPainter& painter) const {
    const double head = 7, half = 4.5;
    const QPointF from(at(0), at(1)), to(at(2), at(3));
    const QPointF along = (to - from) / std::hypot(to.x() - from.x(), to.y() - from.y());
    const QPointF across(-along.y(), along.x());
    const double length = std::min(head, std::hypot(to.x() - from.x(), to.y() - from.y()));
    const QPointF neck = to - along * length;
    painter.setPen(QPen(color_, 2.6, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(from, neck);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color_);
    painter.drawPolygon(QPolygonF({to, neck + across * half, neck - across * half}));
  }

  void drawText(QPainter& painter) const {
    QFont font(QStringLiteral("Liberation Sans"));
    font.setBold(true);
    font.setPixelSize(100);
    QPainterPath path;
    path.addText(0, 0, font, text_);
    const QRectF box = path.boundingRect();
    const double scale = at(2) / 100;
    painter.save();
    painter.translate(at(0), at(1));
    painter.scale(scale, scale);
    painter.translate(-box.center());
    painter.setPen(Qt::NoPen);
    painter.setBrush(color_);
    painter.drawPath(path);
    painter.restore();
  }

  QString kind_;
  QColor color_;
  QString text_;
  std::vector<double> numbers_;
};

QImage draw(const Icon& icon, int size) {
  QImage image(size, size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / 32.0, size / 32.0);
  for (const QString& command : icon.commands) Command(command).draw(painter);
  return image;
}

std::vector<Icon> read(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) throw std::runtime_error("it can't be read");
  QTextStream text(&file);
  std::vector<Icon> icons;
  for (QString line; text.readLineInto(&line);) {
    line = line.trimmed();
    if (line.isEmpty() || line.startsWith(u'#')) continue;
    const qsizetype colon = line.indexOf(u':');
    if (colon < 1) throw std::runtime_error("no icon in the line \"" + line.toStdString() + "\"");
    Icon icon{line.left(colon), {}};
    for (const QString& command : line.mid(colon + 1).split(u';')) icon.commands << command.trimmed();
    icons.push_back(std::move(icon));
  }
  return icons;
}

/// All icons in rows, in both sizes, on white.
QImage sheetOf(const std::vector<Icon>& icons) {
  constexpr int columns = 10, cell = 76, rowHeight = 60;
  const int rows = (static_cast<int>(icons.size()) + columns - 1) / columns;
  QImage sheet(columns * cell, rows * rowHeight, QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  painter.setFont(QFont(QStringLiteral("Liberation Sans"), 7));
  for (std::size_t i = 0; i < icons.size(); ++i) {
    const int x = static_cast<int>(i) % columns * cell + 6, y = static_cast<int>(i) / columns * rowHeight + 6;
    painter.drawImage(x, y, draw(icons[i], 32));
    painter.drawImage(x + 40, y + 8, draw(icons[i], 16));
    painter.drawText(x, y + 46, icons[i].name);
  }
  return sheet;
}

void save(const QImage& image, const QString& path) {
  if (!image.save(path, "PNG")) throw std::runtime_error(path.toStdString() + " can't be written");
}

/// A file of an icon by its name in the folder.
struct IconFile {
  QString name;
  QImage image;
};

/// The icon on black or as a mask, after whether a pixel is at least half covered.
std::vector<IconFile> maskedFiles(const Icon& icon) {
  const QImage drawn = draw(icon, 16);
  QImage picture(drawn.size(), QImage::Format_RGB32), mask(drawn.size(), QImage::Format_RGB32);
  constexpr int half = 128;
  for (int y = 0; y < drawn.height(); ++y) {
    for (int x = 0; x < drawn.width(); ++x) {
      const QColor pixel = drawn.pixelColor(x, y);
      const bool shows = pixel.alpha() >= half;
      picture.setPixelColor(x, y, shows ? QColor(pixel.rgb()) : QColor(Qt::black));
      mask.setPixelColor(x, y, shows ? Qt::black : Qt::white);
    }
  }
  return {{icon.name + QStringLiteral(".png"), picture}, {icon.name + QStringLiteral("_mask.png"), mask}};
}

std::vector<IconFile> filesOf(const Icon& icon, bool masked) {
  if (masked) return maskedFiles(icon);
  return {{icon.name + QStringLiteral(".png"), draw(icon, 32)},
          {icon.name + QStringLiteral("_16.png"), draw(icon, 16)}};
}

void check(const IconFile& file, const QString& folder) {
  requireSame(folder + u'/' + file.name, file.image);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  QStringList arguments = QGuiApplication::arguments().mid(1);
  const bool masked = arguments.removeAll(QStringLiteral("--masked")) > 0;
  const bool checking = arguments.removeAll(QStringLiteral("--check")) > 0;
  if (arguments.size() < 2) {
    std::fputs("usage: draw_icons [--masked] [--check] SOURCE FOLDER [SHEET.png]\n", stderr);
    return 2;
  }
  const QString& source = arguments[0];
  try {
    const std::vector<Icon> icons = read(source);
    for (const Icon& icon : icons) {
      for (const IconFile& file : filesOf(icon, masked)) {
        checking ? check(file, arguments[1]) : save(file.image, arguments[1] + u'/' + file.name);
      }
    }
    if (!checking && arguments.size() > 2) save(sheetOf(icons), arguments[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", source.toLocal8Bit().constData(), error.what());
    return 1;
  }
  return 0;
}
