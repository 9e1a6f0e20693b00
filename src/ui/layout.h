#pragma once
// How controls lie in a form: nested rows, columns and grids, from which one engine computes rectangles by
// the toolkit's text sizes, so that no label is cut on any toolkit.

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vellumark::ui {

class Control;
class Frame;

struct Size {
  int width = 0;
  int height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const Rect&, const Rect&) = default;
};

/// What the engine asks a toolkit for. All sizes are the toolkit's pixels.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  /// Size of a text with its line breaks; `wrapWidth` above 0 wraps it there. `scale` is relative to the
  /// toolkit's own font.
  virtual Size text(std::string_view text, double scale, bool bold, int wrapWidth) const = 0;
  /// Width of an average character and height of a line.
  virtual Size character() const = 0;
  /// The toolkit's pixels for one of a canvas.
  virtual double canvasScale() const { return 1; }
};

enum class Align { start, center, end, fill };

/// One element of a layout.
class Box {
 public:
  enum class Kind { empty, control, row, column, grid, layers, stack, space };

  Box() = default;
  /// A control of its natural size.
  Box(Control& control) : kind_(Kind::control), control_(&control) {}  // NOLINT(google-explicit-constructor)

  Kind kind() const { return kind_; }
  Control* control() const { return control_; }
  const std::vector<Box>& children() const { return children_; }
  int columns() const { return columns_; }
  int stretchFactor() const { return stretch_; }
  int gapSize() const { return gap_; }
  Align alignment() const { return align_; }
  Size minimumSize() const { return minimum_; }
  Frame* frame() const { return frame_; }

  /// Takes a share of what is left along the direction of its row or column, and fills it.
  Box&& stretch(int factor = 1) && {
    stretch_ = factor;
    return std::move(*this);
  }
  /// Distance between children in units of a quarter of a line; 2 unless told otherwise.
  Box&& gap(int quarters) && {
    gap_ = quarters;
    return std::move(*this);
  }
  /// Where it lies across its row or column: fill unless told otherwise.
  Box&& align(Align align) && {
    align_ = align;
    return std::move(*this);
  }
  /// At least so many average characters wide and lines high.
  Box&& atLeast(int characters, int lines = 0) && {
    minimum_ = {characters, lines};
    return std::move(*this);
  }
  /// Lies in a titled frame.
  Box&& in(Frame& frame) && {
    frame_ = &frame;
    return std::move(*this);
  }

  friend Box row(std::vector<Box> children);
  friend Box column(std::vector<Box> children);
  friend Box grid(int columns, std::vector<Box> children);
  friend Box layers(std::vector<Box> children);
  friend Box stack(std::vector<Box> children);
  friend Box space(int stretch);

 private:
  Kind kind_ = Kind::empty;
  Control* control_ = nullptr;
  std::vector<Box> children_;
  int columns_ = 0;
  int stretch_ = 0;
  int gap_ = 2;
  Align align_ = Align::fill;
  Size minimum_;
  Frame* frame_ = nullptr;
};

/// Children side by side, centred on one line.
Box row(std::vector<Box> children);
/// Children one below the other.
Box column(std::vector<Box> children);
/// Children row by row in so many columns, each as wide as its widest child. A stretching child makes its
/// column stretch.
Box grid(int columns, std::vector<Box> children);
/// Children on the same place, one upon the other, for those that are not seen at the same time. Pictures lie
/// on what the form declares before them.
Box layers(std::vector<Box> children);
/// Children in one place, each in a frame of its own: only the one whose frame is in front is seen.
Box stack(std::vector<Box> children);
/// Nothing, taking up what is left.
Box space(int stretch = 1);

/// Whether a control lies on a child of a stack that another one covers.
bool isCovered(const Box& layout, const Control& control);

/// Where everything lies.
struct Arrangement {
  Size size;  ///< of the whole form inside
  std::map<const Control*, Rect> places;
};

/// Arranges a layout in its natural size, or in `size` where that is larger. Controls that are not visible
/// keep their places; those that are covered have none.
Arrangement arrange(const Box& layout, const TextMeasurer& measurer, Size size = {});

}  // namespace vellumark::ui
