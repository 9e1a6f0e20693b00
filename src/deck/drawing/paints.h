#pragma once
// What shapes are filled and lined with, in the colours of their theme.

#include <optional>
#include <pugixml.hpp>

#include "deck/drawing/outline.h"
#include "deck/model/document.h"
#include "platform/drawing.h"

namespace vellumark::deck {

/// A place where fills and lines lie, in points: gradients run across it.
struct PaintArea {
  double width = 0;
  double height = 0;
  platform::Affine toSlide;  ///< from its own points
};

/// The colour of an element (a:srgbClr, a:schemeClr, ...) with its opacity.
platform::Argb drawnColor(const Sheet& sheet, pugi::xml_node element, pugi::xml_node placeholder = {});
/// A colour made lighter or darker as a path of a form asks for it.
platform::Argb shaded(platform::Argb color, PathFill fill);

/// A fill element (a:solidFill, a:gradFill, a:pattFill); nothing for a:noFill, for what is no fill, and for
/// pictures. `placeholder` is what "phClr" stands for.
std::optional<platform::Brush> brushOf(const Sheet& sheet, pugi::xml_node fill, const PaintArea& area,
                                       pugi::xml_node placeholder = {});

/// An element of the theme or of a shape, and what "phClr" in it stands for.
struct Themed {
  pugi::xml_node element;
  pugi::xml_node placeholder;
};
/// The fill element in effect for a shape: its own, that of its style, or that of the placeholders which it
/// inherits from; nothing where it has none.
Themed shapeFill(const ShapeKey& shape);

/// A line as it is drawn, and the ends that it carries ("triangle"; empty for none).
struct LineEnd {
  std::string_view kind;
  double width = 3;  ///< as multiples of the line's width
  double length = 3;
};
struct Line {
  platform::Pen pen;
  LineEnd head, tail;
};
/// The line in effect for a shape; nothing where it has none.
std::optional<Line> shapeLine(const ShapeKey& shape);
/// An a:ln or another element of its kind on its own.
std::optional<Line> lineOf(const Sheet& sheet, pugi::xml_node line, pugi::xml_node placeholder = {});

}  // namespace vellumark::deck
