#include "deck/model/connections.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "deck/model/elbow_route.h"
#include "deck/model/preset_adjustments.h"
#include "deck/model/shape_geometry.h"
#include "deck/model/shape_node.h"
#include "deck/model/sheet_index.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

/// EMU; less comes from turning forth and back.
constexpr double unseen = 0.5;

/// A place on the slide as it lies in a frame that is not turned, from its middle; and back.
Point inFrame(const ShapeFrame& frame, Point place) {
  const Point middle = centre(frame);
  return turned({place.x - middle.x, place.y - middle.y}, -frame.rotation);
}
Point onSlide(const ShapeFrame& frame, Point local) {
  const Point middle = centre(frame), way = turned(local, frame.rotation);
  return {middle.x + way.x, middle.y + way.y};
}

/// The sides of a frame, negative where it is mirrored. One without length counts as an EMU, so that there
/// are shares of it.
Point sides(const ShapeFrame& frame) {
  return {std::max(frame.width, 1.0) * (frame.flipH ? -1 : 1),
          std::max(frame.height, 1.0) * (frame.flipV ? -1 : 1)};
}

/// Where a place lies in a shape, in shares of its sides from the middle; and back.
Point shareOf(const ShapeFrame& frame, Point place) {
  const Point local = inFrame(frame, place), side = sides(frame);
  return {local.x / side.x, local.y / side.y};
}
Point placeAt(const ShapeFrame& frame, Point share) {
  const Point side = sides(frame);
  return onSlide(frame, {share.x * side.x, share.y * side.y});
}

/// All connectors run from the left upper corner of their frame to the right lower one, before the frame is
/// mirrored and turned.
using Ends = std::array<Point, 2>;

Ends endsOf(const ShapeFrame& frame) {
  const Point half{frame.width / (frame.flipH ? -2 : 2), frame.height / (frame.flipV ? -2 : 2)};
  return {onSlide(frame, {-half.x, -half.y}), onSlide(frame, half)};
}

/// The frame of a connector between two places, turned as before.
ShapeFrame between(const Ends& ends, ShapeFrame frame) {
  const Point way = turned({ends[1].x - ends[0].x, ends[1].y - ends[0].y}, -frame.rotation);
  if (std::abs(way.x) > unseen) frame.flipH = way.x < 0;
  if (std::abs(way.y) > unseen) frame.flipV = way.y < 0;
  frame.width = std::round(std::abs(way.x));
  frame.height = std::round(std::abs(way.y));
  frame.x = std::round((ends[0].x + ends[1].x) / 2 - frame.width / 2);
  frame.y = std::round((ends[0].y + ends[1].y) / 2 - frame.height / 2);
  return frame;
}

/// What moves with a shape, by id: itself, and what stands in a group.
void appendMoved(xml_node shape, std::map<std::int32_t, xml_node>& moved) {
  moved.emplace(shapeId(shape), shape);
  if (shapeElement(shape) != ShapeElement::group) return;
  for (const xml_node child : shapeNodes(shape)) appendMoved(child, moved);
}

/// The kind of a connector that runs in several segments, "bentConnector" or "curvedConnector"; empty for a
/// straight one.
std::string_view kindOf(std::string_view preset) {
  for (const std::string_view kind : {"bentConnector", "curvedConnector"}) {
    if (preset.starts_with(kind) && preset.size() == kind.size() + 1) return kind;
  }
  return {};
}

std::vector<std::int32_t> adjustmentsOf(const ShapeGeometry& geometry) {
  std::vector<std::int32_t> adjustments;
  for (const PresetGuide& guide : presetGuides(geometry.preset)) {
    adjustments.push_back(guideValue(geometry, guide));
  }
  return adjustments;
}

/// The frame between the ends of a connector, which may be narrower than the one that it needs for its turns.
ShapeFrame frameOf(const ShapeKey& connector) {
  ShapeFrame frame = slideFrame(connector);
  const ShapeGeometry geometry = shapeGeometry(connector);
  if (kindOf(geometry.preset).empty() || isDirect(adjustmentsOf(geometry))) return frame;
  const auto collapse = [](double& start, double& length) {
    if (length != narrowestDetour) return;
    start += length / 2;
    length = 0;
  };
  collapse(frame.x, frame.width);
  collapse(frame.y, frame.height);
  return frame;
}

struct GluedConnector {
  ShapeKey key;
  std::array<xml_node, 2> shapes;  ///< that the ends are glued to, of those that move
  std::array<Point, 2> shares;     ///< where they touch these
};

/// The connectors that follow when some shapes move, in their order on the sheet.
std::vector<GluedConnector> gluedConnectors(const Sheet& sheet, SheetIndex& index,
                                            const std::map<std::int32_t, xml_node>& moved) {
  std::map<std::size_t, xml_node> connectors;
  for (const auto& [id, shape] : moved) connectors.insert(index.gluedTo(id).begin(), index.gluedTo(id).end());
  std::vector<GluedConnector> glued;
  for (const auto& [place, node] : connectors) {
    if (const auto own = moved.find(shapeId(node)); own != moved.end() && own->second == node) continue;
    GluedConnector connector{{sheet, node}, {}, {}};
    const Ends ends = endsOf(frameOf(connector.key));
    for (const std::size_t end : {0U, 1U}) {
      const auto shape = moved.find(gluedId(node, connectorEnds[end]));
      if (shape == moved.end() || shape->first == 0) continue;
      connector.shapes[end] = shape->second;
      connector.shares[end] = shareOf(slideFrame({sheet, shape->second}), ends[end]);
    }
    glued.push_back(connector);
  }
  return glued;
}

/// The side of a shape that is nearest to a place; nothing for a place in its midst.
std::optional<Side> sideAt(const ShapeFrame& frame, Point place) {
  const Point local = inFrame(frame, place);
  const double across = local.x / std::max(frame.width, 1.0), down = local.y / std::max(frame.height, 1.0);
  constexpr double midst = 0.25;
  if (std::max(std::abs(across), std::abs(down)) < midst) return std::nullopt;
  const Side side = std::abs(across) >= std::abs(down) ? (across > 0 ? Side::right : Side::left)
                                                       : (down > 0 ? Side::down : Side::up);
  return turned(side, frame.rotation);
}

void writeRoute(const ShapeKey& connector, std::string_view kind, const ElbowRoute& route) {
  for (const xml_node node : withCounterparts(connector.node)) {
    const std::string preset = std::string(kind) + std::to_string(route.segments);
    writePreset({connector.sheet, node}, preset, route.adjustments);
  }
  setSlideFrame(connector, route.frame);
}

/// Finds another way where a connector would begin or end in the direction of its shape now; false where it
/// can keep its own.
bool findWay(const ShapeKey& connector, const Ends& ends, const ShapeFrame& before, const ShapeFrame& after) {
  const ShapeGeometry geometry = shapeGeometry(connector);
  const std::string_view kind = kindOf(geometry.preset);
  if (kind.empty()) return false;
  const std::vector<std::int32_t> adjustments = adjustmentsOf(geometry);
  const bool direct = isDirect(adjustments);
  if (direct && after.flipH == before.flipH && after.flipV == before.flipV) return false;

  std::array<std::optional<Side>, 2> sides;
  for (const std::size_t end : {0U, 1U}) {
    const xml_node shape =
        SheetIndex::of(connector.sheet)->withId(gluedId(connector.node, connectorEnds[end]));
    if (shape) sides[end] = sideAt(slideFrame({connector.sheet, shape}), ends[end]);
    if (!sides[end]) return false;
  }
  ElbowRoute route = elbowRoute(ends[0], *sides[0], ends[1], *sides[1]);
  // What the user adjusted stays where the way is of the same kind.
  if (direct && isDirect(route.adjustments) && route.adjustments.size() == adjustments.size()) {
    route.adjustments = adjustments;
  }
  writeRoute(connector, kind, route);
  return true;
}

void follow(const GluedConnector& connector) {
  const ShapeFrame frame = frameOf(connector.key);
  const Ends before = endsOf(frame);
  Ends ends = before;
  for (const std::size_t end : {0U, 1U}) {
    if (!connector.shapes[end]) continue;
    ends[end] = placeAt(slideFrame({connector.key.sheet, connector.shapes[end]}), connector.shares[end]);
  }
  const auto stays = [](const Point& a, const Point& b) {
    return std::abs(a.x - b.x) < unseen && std::abs(a.y - b.y) < unseen;
  };
  if (std::ranges::equal(ends, before, stays)) return;
  const ShapeFrame moved = between(ends, frame);
  if (!findWay(connector.key, ends, frame, moved)) setSlideFrame(connector.key, moved);
}

}  // namespace

void moveShape(const ShapeKey& shape, const ShapeFrame& frame) {
  std::vector<GluedConnector> connectors;
  if (const auto index = SheetIndex::of(shape.sheet); index->hasGlue()) {
    std::map<std::int32_t, xml_node> moved;
    appendMoved(shape.node, moved);
    connectors = gluedConnectors(shape.sheet, *index, moved);
  }
  setSlideFrame(shape, frame);
  for (const GluedConnector& connector : connectors) follow(connector);
}

}  // namespace vellumark::deck
