#pragma once
// Something to draw on that no toolkit needs to be there for: a list of drawing commands, replayed by whoever
// shows it.

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "ui/color.h"

namespace vellumark::ui {

/// Positions and sizes are pixels, y grows downward. What lies outside is cut off.
class Canvas {
 public:
  struct Rectangle {
    double x, y, width, height;
    Color fill;
    friend bool operator==(const Rectangle&, const Rectangle&) = default;
  };
  struct Ellipse {
    double x, y, width, height;
    Color fill;
    friend bool operator==(const Ellipse&, const Ellipse&) = default;
  };
  struct Line {
    double x1, y1, x2, y2;
    Color color;
    double width;
    friend bool operator==(const Line&, const Line&) = default;
  };
  /// A line of text; x and y are its left top corner, the size is in points.
  struct Text {
    double x, y;
    std::string text;
    double size;
    Color color;
    bool bold;
    friend bool operator==(const Text&, const Text&) = default;
  };
  /// A picture file, scaled to the rectangle; nothing where it can't be read.
  struct Image {
    double x, y, width, height;
    std::string path;
    friend bool operator==(const Image&, const Image&) = default;
  };
  /// Rows of pixels from memory, the topmost first, scaled to the rectangle without smoothing.
  struct Pixels {
    double x, y, width, height;
    int columns;  ///< pixels in a row
    std::vector<Color> colors;
    int rows() const { return columns > 0 ? static_cast<int>(colors.size()) / columns : 0; }
    friend bool operator==(const Pixels&, const Pixels&) = default;
  };
  /// Another canvas in its own size, as it was when it was copied.
  struct Copy {
    double x, y;
    std::shared_ptr<const Canvas> source;
    friend bool operator==(const Copy& a, const Copy& b) {
      return a.x == b.x && a.y == b.y && *a.source == *b.source;
    }
  };
  using Command = std::variant<Rectangle, Ellipse, Line, Text, Image, Pixels, Copy>;

  Canvas(int width, int height) : width_(width), height_(height) {}

  int width() const { return width_; }
  int height() const { return height_; }
  const std::vector<Command>& commands() const { return commands_; }
  void clear() { commands_.clear(); }

  void rectangle(double x, double y, double width, double height, Color fill) {
    commands_.emplace_back(Rectangle{x, y, width, height, fill});
  }
  void ellipse(double x, double y, double width, double height, Color fill) {
    commands_.emplace_back(Ellipse{x, y, width, height, fill});
  }
  void line(double x1, double y1, double x2, double y2, Color color, double width = 1) {
    commands_.emplace_back(Line{x1, y1, x2, y2, color, width});
  }
  void text(double x, double y, const std::string& text, double size, Color color, bool bold = false) {
    commands_.emplace_back(Text{x, y, text, size, color, bold});
  }
  void pixels(double x, double y, double width, double height, int columns, std::vector<Color> colors) {
    commands_.emplace_back(Pixels{x, y, width, height, columns, std::move(colors)});
  }
  void copy(double x, double y, const Canvas& source) {
    commands_.emplace_back(Copy{x, y, std::make_shared<const Canvas>(source)});
  }
  void image(double x, double y, double width, double height, const std::string& path) {
    commands_.emplace_back(Image{x, y, width, height, path});
  }

  friend bool operator==(const Canvas&, const Canvas&) = default;

 private:
  int width_;
  int height_;
  std::vector<Command> commands_;
};

}  // namespace vellumark::ui
