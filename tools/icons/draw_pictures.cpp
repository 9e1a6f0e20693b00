// Draws the pictures of the splash:
//
//   draw_pictures PRODUCT
//
// writes customization/branding.gif and program/ui/start_game.png below that folder.
//
//   draw_pictures --check PRODUCT
//
// tells whether the files there are what would be drawn.

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QString>
#include <cstdio>
#include <stdexcept>

#include "gif.h"
#include "same_picture.h"

namespace {

const QColor navy(0x1F, 0x3A, 0x5F), blue(0x2F, 0x6D, 0xB5), sky(0x9C, 0xC3, 0xEA), orange(0xE0, 0x7B, 0x1A),
    paper(0xF6, 0xF8, 0xFB);

/// Text with its left end on a line, as its outline.
QPainterPath text(double x, double baseline, double size, bool bold, const char* words) {
  QFont font(QStringLiteral("Liberation Sans"));
  font.setPixelSize(static_cast<int>(size));
  font.setBold(bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  QPainterPath path;
  path.addText(x, baseline, font, QLatin1String(words));
  return path;
}

/// The name of the product beside bars that share their left edge.
QImage branding() {
  QImage picture(385, 130, QImage::Format_RGB32);
  picture.fill(navy);
  QPainter painter(&picture);
  painter.fillRect(28, 30, 4, 70, Qt::white);
  int top = 34;
  for (const int length : {58, 36, 50}) {
    painter.fillRect(38, top, length, 16, orange);
    top += 23;
  }
  painter.fillRect(0, 124, 385, 6, blue);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(text(122, 70, 42, true, "Vellumark"), Qt::white);
  painter.fillPath(text(124, 97, 19, false, "for presentations"), sky);
  return picture;
}

/// A target above a button.
QImage startGame() {
  QImage picture(400, 240, QImage::Format_RGB32);
  picture.fill(paper);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  int ring = 0;
  for (const int radius : {70, 52, 34, 16}) {
    painter.setBrush(ring++ % 2 == 0 ? blue : paper);
    painter.drawEllipse(QPointF(200, 84), radius, radius);
  }
  painter.setPen(QPen(orange, 6));
  painter.drawLine(QPointF(200, 4), QPointF(200, 164));
  painter.drawLine(QPointF(120, 84), QPointF(280, 84));
  painter.setPen(Qt::NoPen);
  painter.setBrush(navy);
  painter.drawRoundedRect(QRectF(80, 174, 240, 58), 10, 10);
  QPainterPath words = text(0, 0, 36, true, "Start game");
  words.translate(QPointF(200, 203) - words.boundingRect().center());
  painter.fillPath(words, Qt::white);
  return picture;
}

void save(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
    throw std::runtime_error(path.toStdString() + " can't be written");
  }
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const bool checking = argc == 3 && QString::fromLocal8Bit(argv[1]) == u"--check";
  if (argc != (checking ? 3 : 2)) {
    std::fputs("usage: draw_pictures PRODUCT\n       draw_pictures --check PRODUCT\n", stderr);
    return 2;
  }
  const QString product = QString::fromLocal8Bit(argv[argc - 1]);
  const QString brandingFile = product + QStringLiteral("/customization/branding.gif");
  const QString startFile = product + QStringLiteral("/program/ui/start_game.png");
  try {
    if (checking) {
      requireSame(brandingFile, branding());
      requireSame(startFile, startGame());
      return 0;
    }
    save(brandingFile, gif(branding()));
    if (!startGame().save(startFile, "PNG")) {
      throw std::runtime_error(startFile.toStdString() + " can't be written");
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
