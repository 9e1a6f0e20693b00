#pragma once

#include <array>
#include <optional>

#include "ui/controls.h"

namespace vellumark::tools {

/// Eight shapes of one colour each in a row, each shown or hidden, and a marker below the one that is new.
class ColorRow : public ui::PictureBox {
 public:
  ColorRow(ui::Form& form, std::string name);

  static constexpr int count = 8;
  /// The colour of the shape at `index` (from 0); nothing hides it.
  std::optional<ui::Color> shape(int index) const { return shapes_.at(static_cast<std::size_t>(index)); }
  void shape(int index, std::optional<ui::Color> color);
  /// The left edge of the marker in pixels of the row; nothing while it is hidden.
  std::optional<int> marker() const { return marker_; }
  void marker(std::optional<int> left);

 private:
  void draw();

  std::array<std::optional<ui::Color>, count> shapes_;
  std::optional<int> marker_;
};

}  // namespace vellumark::tools
