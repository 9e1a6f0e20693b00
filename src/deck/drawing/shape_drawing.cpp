#include "deck/drawing/shape_drawing.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "deck/drawing/line_drawing.h"
#include "deck/drawing/outline.h"
#include "deck/drawing/paints.h"
#include "deck/drawing/table_drawing.h"
#include "deck/drawing/text_drawing.h"
#include "deck/model/color.h"
#include "deck/model/embedded_object.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_geometry.h"
#include "deck/model/shape_node.h"
#include "deck/model/table_cell.h"
#include "deck/model/theme.h"
#include "deck/model/units.h"

namespace vellumark::deck {
namespace {

using platform::Affine;
using platform::Drawing;
using platform::Path;
using pugi::xml_node;

/// A frame in points and the maps that it brings along.
struct Place {
  double x, y, width, height;
  Affine turn;     ///< slide points before the rotation to where they are drawn
  Affine toSlide;  ///< from the frame's left top corner, mirrored as the shape is

  explicit Place(const ShapeFrame& frame)
      : x(frame.x / emuPerPoint),
        y(frame.y / emuPerPoint),
        width(frame.width / emuPerPoint),
        height(frame.height / emuPerPoint) {
    const double middleX = x + width / 2, middleY = y + height / 2;
    turn = Affine::moved(middleX, middleY)
               .after(Affine::turned(frame.rotation / 60'000).after(Affine::moved(-middleX, -middleY)));
    const Affine mirror = Affine::scaled(frame.flipH ? -1 : 1, frame.flipV ? -1 : 1);
    toSlide = turn.after(Affine::moved(middleX, middleY))
                  .after(mirror.after(Affine::moved(-width / 2, -height / 2)));
  }
};

bool isHidden(xml_node shape) { return drawingProperties(shape).attribute("hidden").as_bool(); }

class ShapeDrawer {
 public:
  explicit ShapeDrawer(Drawing& drawing) : drawing_(drawing) {}

  void draw(const ShapeKey& shape) {
    if (isHidden(shape.node)) return;
    switch (shapeElement(shape.node)) {
      case ShapeElement::group:
        for (const xml_node child : shapeNodes(shape.node)) draw({shape.sheet, child});
        break;
      case ShapeElement::graphicFrame:
        drawFrame(shape);
        break;
      case ShapeElement::shape:
      case ShapeElement::connector:
      case ShapeElement::picture:
        drawShape(shape);
        break;
      default:
        break;
    }
  }

 private:
  Outline outlineOf(const ShapeKey& shape, const Place& place) const {
    const ShapeGeometry geometry = shapeGeometry(shape);
    if (geometry.freeform) {
      for (ShapeKey holder = shape; holder.node; holder = inheritedPlaceholder(holder)) {
        if (const xml_node own = visualProperties(holder.node).child("a:custGeom")) {
          return customOutline(own, place.width, place.height);
        }
      }
    }
    std::vector<std::int32_t> guides;
    for (const PresetGuide& guide : presetGuides(geometry.preset))
      guides.push_back(guideValue(geometry, guide));
    return presetOutline(geometry.preset, place.width, place.height, guides);
  }

  void drawShape(const ShapeKey& shape) {
    const ShapeFrame frame = slideFrame(shape);
    const Place place(frame);
    const bool isPicture = shapeElement(shape.node) == ShapeElement::picture;
    const PaintArea area{place.width, place.height, place.toSlide};
    const Themed fill = shapeFill(shape);
    const std::optional<Line> line = shapeLine(shape);
    const Outline outline = outlineOf(shape, place);
    for (const OutlinePath& part : outline) {
      if (part.fill == PathFill::none) continue;
      if (auto brush = brushOf(shape.sheet, fill.element, area, fill.placeholder)) {
        brush->color = shaded(brush->color, part.fill);
        for (platform::GradientStop& stop : brush->stops) stop.color = shaded(stop.color, part.fill);
        drawing_.commands.emplace_back(
            Drawing::Fill{.path = placed(part.path, place), .brush = std::move(*brush)});
      }
    }
    if (isPicture) drawPicture(shape.sheet, shape.node.child("p:blipFill"), place, outline);
    if (localName(fill.element) == "blipFill") drawPicture(shape.sheet, fill.element, place, outline);
    if (line) {
      for (const OutlinePath& part : outline) {
        if (part.stroke) drawLine(placed(part.path, place), *line, drawing_);
      }
    }
    if (!isPicture) drawTextOf(shape, frame, place);
  }

  static Path placed(const Path& path, const Place& place) {
    Path made;
    made.append(path, place.toSlide);
    return made;
  }

  /// A shape that stands upside down turns its text with it; a mirrored one doesn't.
  void drawTextOf(const ShapeKey& shape, const ShapeFrame& frame, const Place& place) {
    if (!frame.flipV) return drawText(shape, place.turn, drawing_);
    const double middleX = place.x + place.width / 2, middleY = place.y + place.height / 2;
    drawText(shape, place.turn.after(Affine::moved(2 * middleX, 2 * middleY).after(Affine::scaled(-1, -1))),
             drawing_);
  }

  void drawPicture(const Sheet& sheet, xml_node fill, const Place& place, const Outline& outline) {
    const xml_node blip = fill.child("a:blip");
    Drawing::Picture picture;
    picture.bytes = pictureOf(sheet, blip);
    if (!picture.bytes) return;
    const xml_node crop = fill.child("a:srcRect");
    // A picture that is smaller than its frame is drawn in a part of it.
    const xml_node inner = fill.child("a:stretch").child("a:fillRect");
    double x = shareOf(inner.attribute("l")), y = shareOf(inner.attribute("t"));
    double width = 1 - x - shareOf(inner.attribute("r")), height = 1 - y - shareOf(inner.attribute("b"));
    const auto cut = [&](const char* name, double& kept, double& start, double& size, bool isStart) {
      const double value = shareOf(crop.attribute(name));
      if (value >= 0) {
        kept = value;
      } else {
        const double gap = size * -value;
        if (isStart) start += gap;
        size -= gap;
      }
    };
    cut("l", picture.cropLeft, x, width, true);
    cut("r", picture.cropRight, x, width, false);
    cut("t", picture.cropTop, y, height, true);
    cut("b", picture.cropBottom, y, height, false);
    picture.map = place.toSlide.after(
        Affine{width * place.width, 0, x * place.width, 0, height * place.height, y * place.height});
    if (const xml_node faded = blip.child("a:alphaModFix")) {
      picture.opacity = std::clamp(shareOf(faded.attribute("amt"), 1), 0.0, 1.0);
    }
    for (const OutlinePath& part : outline) {
      if (part.fill != PathFill::none) picture.clip.append(part.path, place.toSlide);
    }
    drawing_.commands.emplace_back(std::move(picture));
  }

  void drawFrame(const ShapeKey& frame) {
    const Place place(slideFrame(frame));
    if (tableElement(frame.node)) return drawTable(frame, place.turn, drawing_);
    const std::size_t before = drawing_.commands.size();
    for (const xml_node picture : objectPictures(frame.node)) {
      drawPicture(frame.sheet, picture.child("p:blipFill"), place, {});
      if (drawing_.commands.size() > before) return;
    }
    drawSign(frame, place);
  }

  /// A chart or another thing that only its own program draws: a sheet with three columns on it.
  void drawSign(const ShapeKey& frame, const Place& place) {
    const auto box = [&](double left, double top, double right, double bottom, platform::Argb color) {
      Path path;
      path.rectangle(left * place.width, top * place.height, (right - left) * place.width,
                     (bottom - top) * place.height);
      drawing_.commands.emplace_back(Drawing::Fill{.path = placed(path, place), .brush = {.color = color}});
    };
    const auto accent = [&](const char* name) {
      return drawnColor(frame.sheet, schemeColorElement(frame.sheet, name));
    };
    box(0, 0, 1, 1, 0xFFF2F2F2);
    box(0.2, 0.45, 0.35, 0.85, accent("accent1"));
    box(0.425, 0.2, 0.575, 0.85, accent("accent2"));
    box(0.65, 0.35, 0.8, 0.85, accent("accent3"));
  }

  static platform::PictureBytes pictureOf(const Sheet& sheet, xml_node blip) {
    const Relationship* relationship = sheet.part->relationship(blip.attribute("r:embed").value());
    const PartRef part = relationship ? sheet.part->target(*relationship) : nullptr;
    if (!part || part->parsed()) return nullptr;
    return std::make_shared<const std::string>(part->bytes());
  }
  Drawing& drawing_;
};

platform::Bounds boundsOf(const Drawing::Fill& fill) { return fill.path.bounds(); }
platform::Bounds boundsOf(const Drawing::Stroke& stroke) {
  return stroke.path.bounds().widened(stroke.pen.width / 2);
}
platform::Bounds boundsOf(const Drawing::Picture& picture) {
  Path square, placed;
  square.rectangle(0, 0, 1, 1);
  placed.append(square, picture.map);
  return placed.bounds();
}

}  // namespace

/// It reaches around all that is drawn and around the frames.
Drawing drawShapes(const std::vector<ShapeKey>& shapes) {
  Drawing drawing;
  ShapeDrawer drawer(drawing);
  Path frames;
  for (const ShapeKey& shape : shapes) {
    if (shape.deleted() || isHidden(shape.node)) continue;
    drawer.draw(shape);
    const Place place(slideFrame(shape));
    Path frame;
    frame.rectangle(0, 0, place.width, place.height);
    frames.append(frame, place.toSlide);
  }
  platform::Bounds extent = frames.bounds();
  for (const Drawing::Command& command : drawing.commands) {
    extent.include(std::visit([](const auto& one) { return boundsOf(one); }, command));
  }
  if (!extent.empty()) {
    drawing.left = extent.left;
    drawing.top = extent.top;
    drawing.width = extent.right - extent.left;
    drawing.height = extent.bottom - extent.top;
  }
  return drawing;
}

}  // namespace vellumark::deck
