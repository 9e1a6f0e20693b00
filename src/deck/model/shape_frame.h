#pragma once
// Where shapes lie: a:xfrm in the file, slide coordinates in the model, the bounding frames of groups.

#include <cstdint>
#include <pugixml.hpp>

#include "deck/model/document.h"

namespace vellumark::deck {

/// A frame before rotation, in EMU, and how it is turned about its centre, in 60000ths of a degree clockwise.
/// Doubles, since scaled groups bring fractions of an EMU.
struct ShapeFrame {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  double rotation = 0;
  bool flipH = false;
  bool flipV = false;
};

inline constexpr double fullTurn = 360.0 * 60000.0;

/// A place, or a way, in EMU.
struct Point {
  double x = 0;
  double y = 0;
};
Point centre(const ShapeFrame& frame);
/// A way turned clockwise, by 60000ths of a degree.
Point turned(Point way, double rotation);

/// The frame on the slide. A placeholder without one of its own has that of the layout or master. A shape in
/// a group has the frame that it would keep if all groups around it were dissolved: turned and mirrored
/// groups turn and mirror it, and a scaled group stretches a shape that lies across (turned by more than 45
/// degrees) along the shape's own sides. A shape without any frame lies at 0, 0 and has no size.
ShapeFrame slideFrame(const ShapeKey& shape);

/// One number of that frame, read for itself where it can be.
enum class FramePart { x, y, width, height, rotation };
double slideFramePart(const ShapeKey& shape, FramePart part);

/// Writes the whole frame; -2147024809 where a coordinate is none that the file can hold, or a size is
/// negative. Groups around the shape become the bounding box of what they hold, the turned outlines counted;
/// nothing else moves on the slide. The shapes in a group follow their group.
void setSlideFrame(const ShapeKey& shape, const ShapeFrame& frame);

/// Brings a group and those around it to the bounding box of what they hold, after a shape was taken out.
void fitGroups(const Sheet& sheet, pugi::xml_node group);

}  // namespace vellumark::deck
