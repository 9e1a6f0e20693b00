#include "deck/model/shape_frame.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "base/error.h"
#include "deck/model/embedded_object.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_node.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

/// The range of the file's coordinates.
constexpr std::int64_t coordinateLimit = 27'273'042'316'900;
constexpr std::int64_t angleLimit = 2'147'483'647;

/// A coordinate in EMU: a whole number, or a number with a unit ("1.5in").
double coordinate(pugi::xml_attribute attribute) {
  static constexpr std::pair<std::string_view, double> units[] = {
      {"mm", 36000}, {"cm", 360000}, {"in", 914400}, {"pt", 12700}, {"pc", 152400}, {"pi", 152400}};
  const std::string_view text = attribute.value();
  const auto whole = static_cast<double>(wholeNumber(attribute, -coordinateLimit, coordinateLimit));
  if (text.empty() || (text.back() >= '0' && text.back() <= '9')) return whole;
  double number = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (fault == std::errc()) {
    const std::string_view unit = text.substr(static_cast<std::size_t>(end - text.data()));
    const auto* known = std::ranges::find(units, unit, [](const auto& entry) { return entry.first; });
    if (known != std::end(units)) {
      return std::clamp(std::round(number * known->second), -static_cast<double>(coordinateLimit),
                        static_cast<double>(coordinateLimit));
    }
  }
  return whole;
}

/// a:xfrm, p:xfrm of a graphic frame, p14:xfrm of a content part; nothing where it is missing.
xml_node transformOf(xml_node shape) {
  if (const xml_node properties = shape.child("p:spPr")) return properties.child("a:xfrm");
  switch (shapeElement(shape)) {
    case ShapeElement::graphicFrame:
      return shape.child("p:xfrm");
    case ShapeElement::contentPart:
      for (xml_node child : shape.children()) {
        if (localName(child) == "xfrm") return child;
      }
      return {};
    default:
      return visualProperties(shape).child("a:xfrm");
  }
}

xml_node requireTransform(xml_node shape) {
  if (xml_node existing = transformOf(shape)) return existing;
  switch (shapeElement(shape)) {
    case ShapeElement::graphicFrame:
      return childInOrder(shape, "p:xfrm", {"a:graphic", "p:extLst"});
    case ShapeElement::contentPart:
      return childInOrder(shape, "p14:xfrm", {"p14:extLst"});
    default:
      return requireVisualProperties(shape).prepend_child("a:xfrm");
  }
}

double rotationOf(xml_node transform) {
  return static_cast<double>(wholeNumber(transform.attribute("rot"), -angleLimit - 1, angleLimit));
}

void readTransform(xml_node transform, ShapeFrame& frame) {
  if (!transform) return;
  if (const xml_node offset = transform.child("a:off")) {
    frame.x = coordinate(offset.attribute("x"));
    frame.y = coordinate(offset.attribute("y"));
  }
  if (const xml_node extent = transform.child("a:ext")) {
    frame.width = std::max(0.0, coordinate(extent.attribute("cx")));
    frame.height = std::max(0.0, coordinate(extent.attribute("cy")));
  }
  frame.rotation = static_cast<double>(wholeNumber(transform.attribute("rot"), -angleLimit - 1, angleLimit));
  frame.flipH = transform.attribute("flipH").as_bool();
  frame.flipV = transform.attribute("flipV").as_bool();
}

void setFlag(xml_node node, const char* name, bool on) {
  if (on) {
    setAttribute(node, name, "1");
  } else {
    node.remove_attribute(name);
  }
}

void writePoint(xml_node transform, const char* name, std::initializer_list<const char*> followers,
                const char* first, double firstValue, const char* second, double secondValue) {
  xml_node node = childInOrder(transform, name, followers);
  setAttribute(node, first, static_cast<long long>(std::llround(firstValue)));
  setAttribute(node, second, static_cast<long long>(std::llround(secondValue)));
}

void writePlace(xml_node transform, const ShapeFrame& frame) {
  writePoint(transform, "a:off", {"a:ext", "a:chOff", "a:chExt"}, "x", frame.x, "y", frame.y);
  writePoint(transform, "a:ext", {"a:chOff", "a:chExt"}, "cx", frame.width, "cy", frame.height);
}

void writeTransform(xml_node shape, const ShapeFrame& frame) {
  xml_node transform = requireTransform(shape);
  if (const auto rotation = std::llround(frame.rotation); rotation != 0) {
    setAttribute(transform, "rot", static_cast<long long>(rotation));
  } else {
    transform.remove_attribute("rot");
  }
  setFlag(transform, "flipH", frame.flipH);
  setFlag(transform, "flipV", frame.flipV);
  writePlace(transform, frame);
  if (shapeElement(shape) != ShapeElement::graphicFrame) return;
  for (const xml_node picture : objectPictures(shape)) {
    if (xml_node own = picture.child("p:spPr").child("a:xfrm")) writePlace(own, frame);
  }
}

/// The frame in the coordinates that the shape's own xfrm counts in.
ShapeFrame ownFrame(const Sheet& sheet, xml_node shape);

/// The smallest upright box around the shapes of a group, in the coordinates of its children and in whole
/// EMU; nothing for an empty group.
std::optional<ShapeFrame> childrenBox(const Sheet& sheet, xml_node group) {
  std::optional<ShapeFrame> box;
  for (xml_node child : shapeNodes(group)) {
    const ShapeFrame frame = ownFrame(sheet, child);
    double width = frame.width;
    double height = frame.height;
    if (const double turn = std::fmod(frame.rotation, fullTurn); turn != 0) {
      const double angle = turn / fullTurn * 2 * std::numbers::pi;
      const double cosine = std::abs(std::cos(angle));
      const double sine = std::abs(std::sin(angle));
      width = frame.width * cosine + frame.height * sine;
      height = frame.width * sine + frame.height * cosine;
    }
    const Point middle = centre(frame);
    const ShapeFrame outline{middle.x - width / 2, middle.y - height / 2, width, height};
    if (!box) {
      box = outline;
      continue;
    }
    const double right = std::max(box->x + box->width, outline.x + outline.width);
    const double bottom = std::max(box->y + box->height, outline.y + outline.height);
    box->x = std::min(box->x, outline.x);
    box->y = std::min(box->y, outline.y);
    box->width = right - box->x;
    box->height = bottom - box->y;
  }
  if (box) {
    const double right = std::ceil(box->x + box->width);
    const double bottom = std::ceil(box->y + box->height);
    box->x = std::floor(box->x);
    box->y = std::floor(box->y);
    box->width = right - box->x;
    box->height = bottom - box->y;
  }
  return box;
}

ShapeFrame ownFrame(const Sheet& sheet, xml_node shape) {
  ShapeFrame frame;
  const xml_node transform = transformOf(shape);
  if (!transform.child("a:off") || !transform.child("a:ext")) {
    if (const ShapeKey model = inheritedPlaceholder({sheet, shape}); model.node) {
      frame = ownFrame(model.sheet, model.node);
    } else if (!transform && shapeElement(shape) == ShapeElement::group) {
      return childrenBox(sheet, shape).value_or(ShapeFrame{});
    }
  }
  readTransform(transform, frame);
  return frame;
}

/// A group as a mapping from the coordinates of its children to those that it stands in itself.
class GroupMapping {
 public:
  GroupMapping(const Sheet& sheet, xml_node group) : frame_(ownFrame(sheet, group)), inner_(frame_) {
    const xml_node transform = transformOf(group);
    if (const xml_node offset = transform.child("a:chOff")) {
      inner_.x = coordinate(offset.attribute("x"));
      inner_.y = coordinate(offset.attribute("y"));
    }
    if (const xml_node extent = transform.child("a:chExt")) {
      inner_.width = std::max(0.0, coordinate(extent.attribute("cx")));
      inner_.height = std::max(0.0, coordinate(extent.attribute("cy")));
    }
    scale_ = {scale(frame_.width, inner_.width), scale(frame_.height, inner_.height)};
    if (frame_.rotation != 0) {
      const double angle = std::fmod(frame_.rotation, fullTurn) / fullTurn * 2 * std::numbers::pi;
      cosine_ = std::cos(angle);
      sine_ = std::sin(angle);
    }
  }

  ShapeFrame outward(ShapeFrame child) const {
    stretch(child, scale_);
    Point middle = stretched(centre(child));
    middle = turned(mirrored(middle), sine_);
    turn(child, frame_.rotation + (mirrors() ? -child.rotation : child.rotation));
    mirror(child);
    place(child, middle);
    return child;
  }

  ShapeFrame inward(ShapeFrame child) const {
    Point middle = mirrored(turned(centre(child), -sine_));
    turn(child, mirrors() ? frame_.rotation - child.rotation : child.rotation - frame_.rotation);
    mirror(child);
    middle = {inner_.x + (middle.x - frame_.x) / scale_.x, inner_.y + (middle.y - frame_.y) / scale_.y};
    stretch(child, {1 / scale_.x, 1 / scale_.y});
    place(child, middle);
    return child;
  }

  const ShapeFrame& inner() const { return inner_; }
  const ShapeFrame& frame() const { return frame_; }
  bool scales() const { return scale_.x != 1 || scale_.y != 1; }

  /// A child's frame in a group whose children's space is its own frame.
  ShapeFrame unscaled(ShapeFrame child) const {
    const Point middle = stretched(centre(child));
    stretch(child, scale_);
    place(child, middle);
    return child;
  }

  /// The group's own frame when its children's space becomes `box`, so that no child moves.
  ShapeFrame refitted(const ShapeFrame& box) const {
    ShapeFrame fitted = frame_;
    fitted.width = box.width * scale_.x;
    fitted.height = box.height * scale_.y;
    place(fitted, turned(mirrored(stretched(centre(box))), sine_));
    return fitted;
  }

 private:
  /// A side without length can't stretch anything: its children keep their size.
  static double scale(double outer, double inner) { return outer > 0 && inner > 0 ? outer / inner : 1; }

  static void place(ShapeFrame& frame, const Point& middle) {
    frame.x = middle.x - frame.width / 2;
    frame.y = middle.y - frame.height / 2;
  }

  /// Stretches the sides about the left top corner; a frame that lies across has its width along the y axis.
  void stretch(ShapeFrame& frame, Point by) const {
    const Point middle = centre(frame);
    const double turn = std::abs(std::fmod(frame.rotation, fullTurn / 2));
    if (turn >= fullTurn / 8 && turn < fullTurn * 3 / 8) std::swap(by.x, by.y);
    frame.width *= by.x;
    frame.height *= by.y;
    place(frame, middle);
  }

  Point stretched(const Point& point) const {
    return {frame_.x + (point.x - inner_.x) * scale_.x, frame_.y + (point.y - inner_.y) * scale_.y};
  }

  Point mirrored(Point point) const {
    const Point axis = centre(frame_);
    if (frame_.flipH) point.x = 2 * axis.x - point.x;
    if (frame_.flipV) point.y = 2 * axis.y - point.y;
    return point;
  }

  /// Whether what turns clockwise inside turns the other way outside.
  bool mirrors() const { return frame_.flipH != frame_.flipV; }

  /// A group that neither turns nor mirrors leaves angles as they are written.
  void turn(ShapeFrame& frame, double rotation) const {
    if (frame_.rotation == 0 && !mirrors()) return;
    frame.rotation = std::fmod(rotation, fullTurn);
    if (frame.rotation < 0) frame.rotation += fullTurn;
  }

  void mirror(ShapeFrame& frame) const {
    frame.flipH = frame.flipH != frame_.flipH;
    frame.flipV = frame.flipV != frame_.flipV;
  }

  Point turned(const Point& point, double sine) const {
    if (frame_.rotation == 0) return point;
    const Point axis = centre(frame_);
    const double x = point.x - axis.x;
    const double y = point.y - axis.y;
    return {axis.x + x * cosine_ - y * sine, axis.y + x * sine + y * cosine_};
  }

  ShapeFrame frame_;
  ShapeFrame inner_;
  Point scale_{1, 1};
  double cosine_ = 1;
  double sine_ = 0;
};

/// Refuses what the file can't hold, NaN among it.
void requireCoordinates(const ShapeFrame& frame) {
  constexpr double limit = static_cast<double>(coordinateLimit);
  const auto holds = [](double value, double lowest) { return value >= lowest && value <= limit; };
  if (!holds(frame.x, -limit) || !holds(frame.y, -limit) || !holds(frame.width, 0) ||
      !holds(frame.height, 0)) {
    base::raise(base::errors::outOfRange);
  }
}

void writeChildSpace(xml_node group, const ShapeFrame& space) {
  xml_node transform = requireTransform(group);
  writePoint(transform, "a:chOff", {"a:chExt"}, "x", space.x, "y", space.y);
  writePoint(transform, "a:chExt", {}, "cx", space.width, "cy", space.height);
}

/// Writes a frame to a shape and its counterparts. A group that relied on its children's space being its
/// frame says so before the frame changes.
void writeFrame(const Sheet& sheet, xml_node shape, const ShapeFrame& frame) {
  for (xml_node node : withCounterparts(shape)) {
    if (shapeElement(node) == ShapeElement::group) writeChildSpace(node, GroupMapping(sheet, node).inner());
    writeTransform(node, frame);
  }
}

/// Gives a group that scales its children a space of EMU, since the one that it has may be too coarse for a
/// place that is written. Nothing moves.
void unscale(const Sheet& sheet, xml_node group) {
  const GroupMapping mapping(sheet, group);
  if (!mapping.scales()) return;
  for (xml_node child : shapeNodes(group)) writeFrame(sheet, child, mapping.unscaled(ownFrame(sheet, child)));
  writeChildSpace(group, mapping.frame());
  sheet.touch(Change::contents);
}

}  // namespace

Point centre(const ShapeFrame& frame) { return {frame.x + frame.width / 2, frame.y + frame.height / 2}; }

Point turned(Point way, double rotation) {
  if (rotation == 0) return way;
  const double angle = rotation / fullTurn * 2 * std::numbers::pi;
  return {way.x * std::cos(angle) - way.y * std::sin(angle),
          way.x * std::sin(angle) + way.y * std::cos(angle)};
}

double slideFramePart(const ShapeKey& shape, FramePart part) {
  // Most shapes stand right on the sheet and have a frame of their own: no more than the part is read.
  if (!parentGroup(shape.node)) {
    const xml_node transform = transformOf(shape.node);
    const bool place = part == FramePart::x || part == FramePart::y;
    if (part == FramePart::rotation) {
      if (transform) return rotationOf(transform);
    } else if (const xml_node point = transform.child(place ? "a:off" : "a:ext")) {
      if (place) return coordinate(point.attribute(part == FramePart::x ? "x" : "y"));
      return std::max(0.0, coordinate(point.attribute(part == FramePart::width ? "cx" : "cy")));
    }
  }
  const ShapeFrame frame = slideFrame(shape);
  switch (part) {
    case FramePart::x:
      return frame.x;
    case FramePart::y:
      return frame.y;
    case FramePart::width:
      return frame.width;
    case FramePart::height:
      return frame.height;
    case FramePart::rotation:
      break;
  }
  return frame.rotation;
}

ShapeFrame slideFrame(const ShapeKey& shape) {
  ShapeFrame frame = ownFrame(shape.sheet, shape.node);
  for (xml_node group = parentGroup(shape.node); group; group = parentGroup(group)) {
    frame = GroupMapping(shape.sheet, group).outward(frame);
  }
  return frame;
}

void setSlideFrame(const ShapeKey& shape, const ShapeFrame& frame) {
  requireCoordinates(frame);
  std::vector<xml_node> groups;
  for (xml_node group = parentGroup(shape.node); group; group = parentGroup(group)) groups.push_back(group);
  ShapeFrame own = frame;
  for (auto group = groups.rbegin(); group != groups.rend(); ++group) {
    unscale(shape.sheet, *group);
    own = GroupMapping(shape.sheet, *group).inward(own);
  }
  requireCoordinates(own);
  writeFrame(shape.sheet, shape.node, own);
  if (!groups.empty()) fitGroups(shape.sheet, groups.front());
  shape.sheet.touch(Change::contents);
}

void fitGroups(const Sheet& sheet, xml_node group) {
  for (; group; group = parentGroup(group)) {
    std::optional<ShapeFrame> box = childrenBox(sheet, group);
    if (!box) continue;
    const GroupMapping mapping(sheet, group);
    const ShapeFrame& before = mapping.inner();
    if (box->x == before.x && box->y == before.y && box->width == before.width &&
        box->height == before.height) {
      return;
    }
    const ShapeFrame fitted = mapping.refitted(*box);
    for (xml_node node : withCounterparts(group)) {
      if (shapeElement(node) == ShapeElement::group) writeChildSpace(node, *box);
      writeTransform(node, fitted);
    }
  }
}

}  // namespace vellumark::deck
