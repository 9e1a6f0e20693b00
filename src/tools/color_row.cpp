#include "tools/color_row.h"

namespace vellumark::tools {
namespace {

constexpr int pitch = 19;  // from one shape to the next
constexpr int side = 17;
constexpr int markerSide = 7;
constexpr ui::Color edge = ui::rgb(128, 128, 128);
constexpr ui::Color black = ui::rgb(0, 0, 0);

}  // namespace

ColorRow::ColorRow(ui::Form& form, std::string name)
    : PictureBox(form, std::move(name), count * pitch, side + 2 + markerSide / 2 + 1) {}

void ColorRow::shape(int index, std::optional<ui::Color> color) {
  shapes_.at(static_cast<std::size_t>(index)) = color;
  draw();
}

void ColorRow::marker(std::optional<int> left) {
  marker_ = left;
  draw();
}

void ColorRow::draw() {
  canvas().clear();
  for (int i = 0; i < count; ++i) {
    const std::optional<ui::Color> color = shape(i);
    if (!color) continue;
    canvas().rectangle(i * pitch, 0, side, side, edge);
    canvas().rectangle(i * pitch + 1, 1, side - 2, side - 2, *color);
  }
  // A triangle that points at its shape.
  for (int row = 0; marker_ && row <= markerSide / 2; ++row) {
    canvas().rectangle(*marker_ + markerSide / 2 - row, side + 2 + row, 2 * row + 1, 1, black);
  }
  refresh();
}

}  // namespace vellumark::tools
