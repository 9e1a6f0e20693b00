#pragma once

namespace vellumark::ui {

/// How a text looks; the family is the toolkit's own.
struct Font {
  double points = 0;  ///< 0: the toolkit's usual size
  bool bold = false;
  bool underline = false;
  bool operator==(const Font&) const = default;
};

}  // namespace vellumark::ui
