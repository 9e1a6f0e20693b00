#include "decks/template_canvas.h"

#include <cmath>

namespace vellumark::samples {

using decks::ShapeBuilder;
using decks::TextStyle;

const Look blueLook{.name = "Vellumark Blue",
                    .theme = {.name = "Vellumark Blue",
                              .colors = {"1F2933", "FFFFFF", "17375E", "EEF3F9", "2E5F99", "FFC000", "5B8DB8",
                                         "7A9A3A", "7F6A9E", "8C99A8", "2E5F99", "7F6A9E"}},
                    .boxes = true,
                    .ink = "tx1",
                    .quiet = "tx1 lighter 35",
                    .title = "tx2",
                    .head = "accent1",
                    .onHead = "bg1",
                    .strong = "tx2",
                    .onStrong = "bg1",
                    .panel = "accent1 lighter 90",
                    .soft = "accent1 lighter 80",
                    .rule = "accent1 lighter 60",
                    .mark = "accent2",
                    .gap = 4};

const Look greyLook{.name = "Vellumark Grey",
                    .theme = {.name = "Vellumark Grey",
                              .colors = {"262626", "FFFFFF", "404040", "F2F2F2", "4F6B7A", "7F7F7F", "A6A6A6",
                                         "8A9A8E", "B0A090", "BFBFBF", "4F6B7A", "7F7F7F"}},
                    .boxes = false,
                    .ink = "tx1",
                    .quiet = "tx1 lighter 25",
                    .title = "tx1",
                    .head = "bg1 darker 10",
                    .onHead = "tx1",
                    .strong = "tx1 lighter 15",
                    .onStrong = "bg1",
                    .panel = "",
                    .soft = "bg1 darker 5",
                    .rule = "bg1 darker 25",
                    .mark = "accent1",
                    .gap = 0};

TextStyle Canvas::text(double size, const std::string& color, double spaceBefore,
                       const std::string& align) const {
  return {.size = size, .color = color, .font = "+mn-lt", .align = align, .spaceBefore = spaceBefore};
}

TextStyle Canvas::body(double size, double spaceBefore) const { return text(size, look.ink, spaceBefore); }

TextStyle Canvas::bold(double size, const std::string& color, const std::string& align,
                       double spaceBefore) const {
  TextStyle style = text(size, color, spaceBefore, align);
  style.bold = true;
  return style;
}

TextStyle Canvas::point(double size, double spaceBefore, int level) const {
  TextStyle style = body(size, spaceBefore);
  style.bullet = level == 0 ? "•" : "–";
  style.level = level;
  return style;
}

ShapeBuilder Canvas::filled(const std::string& preset, double x, double y, double width, double height,
                            const std::string& fill) const {
  return tree.shape(preset, x, y, width, height).fill(fill).noLine();
}

ShapeBuilder Canvas::heading(double x, double y, double width, double height, const std::string& text,
                             double size) const {
  return filled("rect", x, y, width, height, look.head)
      .named("Heading")
      .insets(14, 4, 14, 4)
      .text(text, bold(size, look.onHead));
}

ShapeBuilder Canvas::panel(double x, double y, double width, double height, Closed closed) const {
  if (look.panel.empty() && closed != Closed::nowhere) {
    const double edge = closed == Closed::above ? y : y + height;
    rule(x, edge, x + width, edge);
  }
  return filled("rect", x, y, width, height, look.panel).anchor("t").insets(14, 12, 14, 12);
}

ShapeBuilder Canvas::plain(double x, double y, double width, double height, const std::string& anchor) const {
  return tree.textBox(x, y, width, height).insets(0, 0, 0, 0).anchor(anchor);
}

ShapeBuilder Canvas::rule(double x1, double y1, double x2, double y2, double weight) const {
  return tree.connector("line", x1, y1, x2, y2).line(look.rule, weight).named("Rule");
}

ShapeBuilder ArrowRow::draw(const Canvas& canvas, int i, double y, double height, const std::string& text,
                            double size) const {
  return canvas.filled(i == 0 ? "homePlate" : "chevron", x(i), y, arrowWidth(), height, canvas.look.head)
      .adjust({static_cast<int>(std::lround(depth / height * 100000))})
      .named("Arrow " + std::to_string(i + 1))
      .insets(2, 2, 2, 2)
      .text(text, canvas.bold(size, canvas.look.onHead, "ctr"));
}

const std::string& ordinal(int i) {
  static const std::vector<std::string> all{"First", "Second", "Third", "Fourth", "Fifth", "Sixth"};
  return all.at(i);
}

}  // namespace vellumark::samples
