// Paths and maps of drawings, and letters as paths.

#include "platform/drawing.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/text_outline.h"

namespace vellumark::platform {
namespace {

TEST(Drawing, MapsFollowEachOther) {
  const Affine map = Affine::moved(100, 0).after(Affine::turned(90).after(Affine::scaled(2, 3)));
  const DrawPoint p = map({1, 10});
  EXPECT_NEAR(p.x, 100 - 30, 1e-9);
  EXPECT_NEAR(p.y, 2, 1e-9);
}

// Each point of an arc lies on its ellipse, and it ends where it should.
TEST(Drawing, ArcsLieOnTheirEllipse) {
  const struct {
    double start, sweep, endX, endY;
  } cases[] = {
      {180, 90, 0, -50}, {180, -90, 0, 50}, {0, 270, 0, -50}, {90, 360, 0, 50}, {0, 45, 70.7107, 35.3553}};
  constexpr double degrees = 3.14159265358979 / 180;
  for (const auto& c : cases) {
    Path path;
    path.moveTo(100 * std::cos(c.start * degrees), 50 * std::sin(c.start * degrees));
    path.arcTo(100, 50, c.start, c.sweep);
    EXPECT_NEAR(path.current().x, c.endX, 1e-3) << c.start << " " << c.sweep;
    EXPECT_NEAR(path.current().y, c.endY, 1e-3) << c.start << " " << c.sweep;
    DrawPoint from = path.segments().front().points[0];
    for (std::size_t i = 1; i < path.segments().size(); ++i) {
      const auto& p = path.segments()[i].points;
      const double x = (from.x + 3 * p[0].x + 3 * p[1].x + p[2].x) / 8;
      const double y = (from.y + 3 * p[0].y + 3 * p[1].y + p[2].y) / 8;
      EXPECT_NEAR(std::hypot(x / 100, y / 50), 1, 5e-4);
      from = p[2];
    }
  }
}

TEST(Drawing, LettersStandOnTheBaseLine) {
  const FontFace face{"Liberation Sans"};
  const Bounds x = textOutline(face, u"x").bounds();
  const Bounds p = textOutline(face, u"p").bounds();
  const Bounds two = textOutline(face, u"xx").bounds();
  EXPECT_NEAR(x.bottom, 0, 0.03);
  EXPECT_LT(x.top, -0.4);
  EXPECT_GT(p.bottom, 0.15) << "reaches below the line";
  EXPECT_NEAR(two.right - x.right, textWidth(face, u"xx") / 2, 0.02);
  EXPECT_TRUE(textOutline(face, u" ").empty());
  EXPECT_TRUE(textOutline(face, u"").empty());
}

}  // namespace
}  // namespace vellumark::platform
