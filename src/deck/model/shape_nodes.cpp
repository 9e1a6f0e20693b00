#include "deck/model/shape_nodes.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

#include "deck/model/connections.h"
#include "deck/model/member_table.h"
#include "deck/model/shape_frame.h"
#include "deck/model/shape_geometry.h"
#include "deck/model/shape_node.h"
#include "deck/model/units.h"
#include "deck/model/xml_order.h"

namespace vellumark::deck {
namespace {

using pugi::xml_node;

/// A coordinate of a path. Those that a formula gives can't be moved.
double coordinate(xml_node node, const char* name) {
  const std::string_view text = node.attribute(name).value();
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) {
    base::raise(base::errors::outOfRange,
                "ShapeNodes: The outline's points come from formulas and can't be moved.");
  }
  return value;
}

void setCoordinate(xml_node node, const char* name, double value) {
  setAttribute(node, name, std::to_string(std::llround(value)).c_str());
}

/// The paths of a freeform with all their points in EMU from the left top corner of its frame, before
/// rotation.
class Outline {
 public:
  Outline(const ShapeKey& shape, const ShapeFrame& frame, bool countsClosingPoint)
      : countsClosingPoint_(countsClosingPoint) {
    for (xml_node path :
         visualProperties(shape.node).child("a:custGeom").child("a:pathLst").children("a:path")) {
      const double width = path.attribute("w").as_double(), height = path.attribute("h").as_double();
      const Point scale{width > 0 ? frame.width / width : 1, height > 0 ? frame.height / height : 1};
      paths_.push_back({path, scale});
      Figure figure;
      for (xml_node command : path.children()) {
        const std::string_view name = localName(command);
        if (name == "moveTo") finish(figure);
        for (xml_node point : command.children("a:pt")) {
          figure.points.push_back(points_.size());
          points_.push_back({point, {coordinate(point, "x") * scale.x, coordinate(point, "y") * scale.y}});
        }
        if (name == "close") figure.close = command;
      }
      finish(figure);
    }
  }

  std::size_t count() const { return nodes_.size(); }

  /// Moves a node, from 0.
  void move(std::size_t place, Point to) {
    const Node& node = nodes_[place];
    if (node.points.empty()) addClosingPoint(node, to);
    for (const std::size_t point : node.points) points_[point].at = to;
  }

  /// Brings the left top corner to 0, 0 and writes everything. The answers are where that corner was and the
  /// size.
  std::pair<Point, Point> write() {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    Point least{infinite, infinite}, most{-infinite, -infinite};
    for (const PathPoint& point : points_) {
      least = {std::min(least.x, point.at.x), std::min(least.y, point.at.y)};
      most = {std::max(most.x, point.at.x), std::max(most.y, point.at.y)};
    }
    for (const PathPoint& point : points_) {
      setCoordinate(point.node, "x", point.at.x - least.x);
      setCoordinate(point.node, "y", point.at.y - least.y);
    }
    const Point size{most.x - least.x, most.y - least.y};
    for (const Path& path : paths_) {
      for (xml_node arc : path.node.children("a:arcTo")) {
        setCoordinate(arc, "wR", coordinate(arc, "wR") * path.scale.x);
        setCoordinate(arc, "hR", coordinate(arc, "hR") * path.scale.y);
      }
      xml_node node = path.node;
      setCoordinate(node, "w", size.x);
      setCoordinate(node, "h", size.y);
    }
    return {least, size};
  }

 private:
  struct Path {
    xml_node node;
    Point scale;
  };
  struct PathPoint {
    xml_node node;
    Point at;
  };
  /// What one a:moveTo begins.
  struct Figure {
    std::vector<std::size_t> points;
    xml_node close;
  };
  /// A node as the host counts it: the points that move with it; none for the closing point of a figure that
  /// closes by itself.
  struct Node {
    std::vector<std::size_t> points;
    std::size_t first = 0;  ///< the figure's first point
    xml_node close;
  };

  void finish(Figure& figure) {
    const Figure done = std::exchange(figure, {});
    if (done.points.empty()) return;
    const std::size_t first = done.points.front(), last = done.points.back();
    const bool returns = done.close && last != first && points_[first].at.x == points_[last].at.x &&
                         points_[first].at.y == points_[last].at.y;
    for (const std::size_t point : done.points) nodes_.push_back({{point}, first, done.close});
    if (returns && !countsClosingPoint_) {
      nodes_.pop_back();
      nodes_[nodes_.size() - (done.points.size() - 1)].points.push_back(last);
    } else if (done.close && !returns && countsClosingPoint_) {
      nodes_.push_back({{}, first, done.close});
    }
  }

  void addClosingPoint(const Node& node, Point to) {
    const Point& start = points_[node.first].at;
    if (std::abs(start.x - to.x) < 1 && std::abs(start.y - to.y) < 1) return;
    xml_node line = node.close.parent().insert_child_before("a:lnTo", node.close);
    points_.push_back({line.append_child("a:pt"), to});
  }

  bool countsClosingPoint_;
  std::vector<Path> paths_;
  std::vector<PathPoint> points_;
  std::vector<Node> nodes_;
};

/// Turns and mirrors a point about the origin as a frame does, or back.
Point turned(Point point, const ShapeFrame& frame, bool back) {
  const double angle = frame.rotation / fullTurn * 2 * std::numbers::pi * (back ? -1 : 1);
  const auto mirrored = [&](Point p) { return Point{frame.flipH ? -p.x : p.x, frame.flipV ? -p.y : p.y}; };
  if (!back) point = mirrored(point);
  if (angle != 0) {
    point = {point.x * std::cos(angle) - point.y * std::sin(angle),
             point.x * std::sin(angle) + point.y * std::cos(angle)};
  }
  return back ? mirrored(point) : point;
}

/// Hosts up to 11.0 count each corner of a closed figure once, later ones its closing point too. Moving a
/// node leaves the others where they are; the frame becomes the box around all points. Control points of
/// curves count as nodes.
class NodesObject : public ModelObject<NodesObject> {
 public:
  static constexpr const char* className = "ShapeNodes";
  static const MemberTable<NodesObject>& members() {
    static const MemberTable<NodesObject> table{
        property<&NodesObject::count>(member::Count),
        method<&NodesObject::setPosition>(member::SetPosition, 3),
    };
    return table;
  }

  NodesObject(HostRef host, ShapeKey shape) : ModelObject(std::move(host)), shape_(std::move(shape)) {}
  void requireAlive() const {
    if (shape_.deleted()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t count() { return static_cast<std::int32_t>(outline(slideFrame(shape_)).count()); }

  void setPosition(Arguments arguments) {
    ShapeFrame frame = slideFrame(shape_);
    Outline nodes = outline(frame);
    const std::int32_t index = arguments[0].toInt();
    if (index < 1 || static_cast<std::size_t>(index) > nodes.count()) base::raise(base::errors::outOfRange);
    const Point target{arguments[1].toFloat() * emuPerPoint, arguments[2].toFloat() * emuPerPoint};
    if (!std::isfinite(target.x) || !std::isfinite(target.y)) base::raise(base::errors::outOfRange);

    const Point half{frame.width / 2, frame.height / 2};
    const Point centre{frame.x + half.x, frame.y + half.y};
    const Point local = turned({target.x - centre.x, target.y - centre.y}, frame, true);
    nodes.move(static_cast<std::size_t>(index) - 1, {local.x + half.x, local.y + half.y});
    const auto [corner, size] = nodes.write();
    const Point shift =
        turned({corner.x + size.x / 2 - half.x, corner.y + size.y / 2 - half.y}, frame, false);
    frame.x = centre.x + shift.x - size.x / 2;
    frame.y = centre.y + shift.y - size.y / 2;
    frame.width = size.x;
    frame.height = size.y;
    moveShape(shape_, frame);
    shape_.sheet.touch(Change::contents);
  }

 private:
  Outline outline(const ShapeFrame& frame) const { return Outline(shape_, frame, !host()->beforeRibbon()); }

  ShapeKey shape_;
};

}  // namespace

host::ObjectRef makeNodes(const HostRef& host, const ShapeKey& shape) {
  if (!shapeGeometry(shape).freeform) base::raise(base::errors::outOfRange);
  return std::make_shared<NodesObject>(host, shape);
}

}  // namespace vellumark::deck
