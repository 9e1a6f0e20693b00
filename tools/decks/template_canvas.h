#pragma once
// What the Slide Wizard's elements are drawn with: the look of a style, the page, and what elements share.

#include <string>
#include <vector>

#include "decks/deck_builder.h"

namespace vellumark::samples {

/// A style. Colours are names of the theme, so that an element takes on the colours of the presentation that
/// it is pasted into.
struct Look {
  std::string name;
  decks::Theme theme;
  bool boxes = true;  ///< filled boxes; otherwise quiet bars and thin lines

  std::string ink;               ///< text
  std::string quiet;             ///< text that steps back
  std::string title;             ///< headings without a fill
  std::string head, onHead;      ///< heading bars and arrows, and the text on them
  std::string strong, onStrong;  ///< the one thing that stands out
  std::string panel;             ///< below text; empty: not filled
  std::string soft;              ///< rows and areas that are set off
  std::string rule;              ///< thin lines
  std::string mark;              ///< small marks
  double gap = 0;                ///< between a heading and its panel
};

extern const Look blueLook, greyLook;

/// A slide; elements lie between its margins, below the title.
struct Page {
  double width, height;
  static constexpr double left = 48, top = 112, bottom = 488;

  bool wide() const { return width > 800; }
  double span() const { return width - 2 * left; }
  double right() const { return width - left; }
};

/// On which side a thin line closes a panel that is not filled.
enum class Closed { below, above, nowhere };

/// A slide of one element in one look.
struct Canvas {
  decks::ShapeTree tree;
  const Look& look;
  const Page& page;

  // Sizes of text: wide pages take larger ones.
  double textSize() const { return page.wide() ? 18 : 16; }
  double detailSize() const { return page.wide() ? 16 : 14; }

  // Texts in the theme's font.
  decks::TextStyle text(double size, const std::string& color, double spaceBefore = 0,
                        const std::string& align = "l") const;
  decks::TextStyle body(double size, double spaceBefore = 0) const;
  decks::TextStyle bold(double size, const std::string& color, const std::string& align = "l",
                        double spaceBefore = 0) const;
  decks::TextStyle point(double size, double spaceBefore = 6, int level = 0) const;

  /// A shape in one colour without a line; an empty colour: not filled.
  decks::ShapeBuilder filled(const std::string& preset, double x, double y, double width, double height,
                             const std::string& fill) const;
  /// The bar with a heading above a panel or a column.
  decks::ShapeBuilder heading(double x, double y, double width, double height, const std::string& text,
                              double size = 18) const;
  /// The box for text, from the top. Where panels are not filled, a thin line closes it.
  decks::ShapeBuilder panel(double x, double y, double width, double height,
                            Closed closed = Closed::below) const;
  /// A box for text without fill, line and margins.
  decks::ShapeBuilder plain(double x, double y, double width, double height,
                            const std::string& anchor = "t") const;
  decks::ShapeBuilder rule(double x1, double y1, double x2, double y2, double weight = 0.75) const;

  /// The same canvas, drawing into a group.
  Canvas inside(const decks::ShapeBuilder& group) const { return {group.children(), look, page}; }
};

/// A row of process arrows with the same gap between all of them.
struct ArrowRow {
  double left, width, depth, gap;  ///< depth: of the arrows' points
  int count;

  double arrowWidth() const { return (width + (count - 1) * (depth - gap)) / count; }
  double pitch() const { return arrowWidth() - depth + gap; }
  double x(int i) const { return left + i * pitch(); }
  /// From an arrow's left to its right shoulder: the width of what stands below it.
  double bodyWidth() const { return arrowWidth() - depth; }
  decks::ShapeBuilder draw(const Canvas& canvas, int i, double y, double height, const std::string& text,
                           double size) const;
};

/// "First" to "Sixth".
const std::string& ordinal(int i);

// The elements, in the order of their slides.
using Element = void (*)(const Canvas&);
extern const std::vector<Element> textElements, tableElements, processElements, structureElements;

}  // namespace vellumark::samples
