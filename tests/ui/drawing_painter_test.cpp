// Drawings as pixels.

#include "ui/qt/drawing_painter.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColor>
#include <QTemporaryDir>

namespace vellumark::ui::qt {
namespace {

using platform::Affine;
using platform::Brush;
using platform::Drawing;
using platform::Path;

class DrawingPainterTest : public testing::Test {
 protected:
  /// A drawing of 100 by 50 points in a picture of 200 by 100 pixels.
  QImage paint(const Drawing& drawing, platform::Argb ground = 0) {
    const QString path = folder_.filePath("picture.png");
    EXPECT_TRUE(paintPng(drawing, {200, 100, Affine::scaled(2, 2), ground, path.toStdString()}));
    return QImage(path);
  }
  static Path box(double x, double y, double width, double height) {
    Path path;
    path.rectangle(x, y, width, height);
    return path;
  }
  static platform::PictureBytes pngOf(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return std::make_shared<const std::string>(bytes.toStdString());
  }
  static std::string at(const QImage& image, int x, int y) {
    return image.pixelColor(x, y).name(QColor::HexArgb).toStdString();
  }

  QTemporaryDir folder_;
};

TEST_F(DrawingPainterTest, FillsAndStrokesOnATransparentGround) {
  Drawing drawing;
  Path ring = box(10, 10, 40, 30);
  ring.append(box(20, 20, 20, 10), {});
  drawing.commands = {
      Drawing::Fill{ring, {.color = 0xFFFF0000}},
      Drawing::Stroke{box(60, 10, 30, 30), {.color = 0xFF0000FF, .width = 4}},
      Drawing::Fill{box(0, 45, 100, 5),
                    {.kind = Brush::Kind::linear,
                     .stops = {{0, 0xFF000000}, {1, 0xFFFFFFFF}},
                     .from = {0, 0},
                     .to = {100, 0}}},
  };
  const QImage image = paint(drawing);
  EXPECT_EQ(image.size(), QSize(200, 100));
  EXPECT_EQ(at(image, 5, 5), "#00000000");
  EXPECT_EQ(at(image, 30, 30), "#ffff0000");
  EXPECT_EQ(at(image, 60, 50), "#00000000") << "the hole of the ring";
  EXPECT_EQ(at(image, 122, 50), "#ff0000ff");
  EXPECT_EQ(at(image, 150, 50), "#00000000");
  EXPECT_LT(image.pixelColor(20, 95).lightness(), 60);
  EXPECT_GT(image.pixelColor(180, 95).lightness(), 200);
  EXPECT_EQ(at(paint({}, 0x80FFFFFF), 100, 50), "#80ffffff");
}

TEST_F(DrawingPainterTest, PicturesAreCroppedClippedAndTurned) {
  QImage source(4, 2, QImage::Format_RGB32);
  source.fill(Qt::green);
  for (int y = 0; y < 2; ++y) source.setPixelColor(3, y, Qt::blue);
  Drawing::Picture picture;
  picture.bytes = pngOf(source);
  picture.map = {-80, 0, 90, 0, -40, 45};  // turned by half a circle
  picture.cropLeft = 0.5;
  picture.clip = box(0, 0, 100, 25);
  const QImage image = paint({.commands = {picture}});
  EXPECT_EQ(at(image, 30, 30), "#ff0000ff");
  EXPECT_EQ(at(image, 170, 30), "#ff00ff00");
  EXPECT_EQ(at(image, 30, 70), "#00000000") << "outside the clip";
  // What is no picture draws nothing and breaks nothing.
  picture.bytes = std::make_shared<const std::string>("no picture");
  EXPECT_EQ(at(paint({.commands = {picture}}), 30, 30), "#00000000");
}

// No pixel is passed over: a fine grid of black and white is grey from afar.
TEST_F(DrawingPainterTest, LargePicturesAreReducedEvenly) {
  QImage source(640, 640, QImage::Format_RGB32);
  for (int y = 0; y < source.height(); ++y) {
    for (int x = 0; x < source.width(); ++x) {
      source.setPixelColor(x, y, x % 16 < 8 ? Qt::black : Qt::white);
    }
  }
  Drawing::Picture picture;
  picture.bytes = pngOf(source);
  picture.map = {10, 0, 20, 0, 10, 20};
  const QImage image = paint({.commands = {picture}});
  for (int x = 44; x < 56; ++x) EXPECT_NEAR(image.pixelColor(x, 50).red(), 128, 12) << x;
}

TEST_F(DrawingPainterTest, WhatCannotBeWrittenIsTold) {
  EXPECT_FALSE(paintPng({}, {10, 10, {}, 0, folder_.filePath("missing/picture.png").toStdString()}));
  EXPECT_FALSE(paintPng({}, {0, 0, {}, 0, folder_.filePath("empty.png").toStdString()}));
}

}  // namespace
}  // namespace vellumark::ui::qt
