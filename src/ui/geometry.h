#pragma once
// Sizes and rectangles in the toolkit's pixels.

namespace vellumark::ui {

struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

struct Point {
  int x = 0;
  int y = 0;
  bool operator==(const Point&) const = default;
};

struct Rect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  int right() const { return left + width; }
  int bottom() const { return top + height; }
  bool contains(Point p) const { return p.x >= left && p.x < right() && p.y >= top && p.y < bottom(); }
  bool operator==(const Rect&) const = default;
};

}  // namespace vellumark::ui
