#include "tools/pick_color_pictures.h"

namespace vellumark::tools {
namespace {

constexpr ui::Color teal = ui::rgb(0x1B, 0x68, 0x78);
constexpr ui::Color white = ui::rgb(255, 255, 255);
constexpr ui::Color grey = ui::rgb(128, 128, 128);

}  // namespace

void drawLogo(ui::Canvas& canvas) {
  constexpr ui::Color strip[] = {ui::rgb(0xE0, 0x7A, 0x3F), ui::rgb(0xF2, 0xC1, 0x4E),
                                 ui::rgb(0x5B, 0xA3, 0x78), ui::rgb(0x3D, 0x6F, 0xB6),
                                 ui::rgb(0x7A, 0x4F, 0x9A)};
  canvas.clear();
  canvas.rectangle(3, 3, 58, 58, teal);
  canvas.line(16, 12, 32, 42, white, 7);
  canvas.line(48, 12, 32, 42, white, 7);
  canvas.ellipse(28.5, 38.5, 7, 7, white);
  double x = 3;
  for (const ui::Color color : strip) {
    canvas.rectangle(x, 52, 11.6, 9, color);
    x += 11.6;
  }
}

void drawHatch(ui::Canvas& canvas) {
  constexpr int side = 8;
  canvas.clear();
  canvas.rectangle(0, 0, side, side, white);
  for (int x = 0; x < side; ++x) {
    for (const int start : {3, 7}) canvas.rectangle(x, (start - x + side) % side, 1, 1, grey);
  }
}

}  // namespace vellumark::tools
