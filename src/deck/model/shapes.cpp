// Collections of shapes: all of a sheet, its placeholders, the members of a group.

#include "deck/model/shapes.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "base/text.h"
#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/placeholder.h"
#include "deck/model/shape_creation.h"
#include "deck/model/shape_node.h"
#include "deck/model/sheet_index.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

constexpr std::int32_t titleTypes[] = {1, 3, 5};

bool isTitle(pugi::xml_node shape) {
  const pugi::xml_node element = placeholderElement(shape);
  return element && std::ranges::find(titleTypes, placeholderType(element)) != std::end(titleTypes);
}

std::string_view nameOf(pugi::xml_node shape) { return drawingProperties(shape).attribute("name").value(); }

/// The first shape with a name, as it is written or else in any case; nothing where there is none.
pugi::xml_node findNamed(const std::vector<pugi::xml_node>& shapes, const std::string& wanted) {
  auto found = std::ranges::find(shapes, wanted, nameOf);
  if (found == shapes.end()) {
    found = std::ranges::find_if(
        shapes, [&](pugi::xml_node shape) { return base::equalsIgnoreCase(nameOf(shape), wanted); });
  }
  return found == shapes.end() ? pugi::xml_node() : *found;
}

std::vector<ShapeKey> keys(const Sheet& sheet, const std::vector<pugi::xml_node>& nodes) {
  std::vector<ShapeKey> keys;
  keys.reserve(nodes.size());
  for (const pugi::xml_node node : nodes) keys.push_back({sheet, node});
  return keys;
}

/// Members that all collections of shapes have. T tells its shapes by `nodes()`, and may have a quicker
/// `named()` of its own.
template <typename T>
class ShapeCollection : public ModelObject<T> {
 public:
  ShapeCollection(HostRef host, Sheet sheet) : ModelObject<T>(std::move(host)), sheet_(std::move(sheet)) {}
  void requireAlive() const {
    if (sheet_.document->closed() || sheet_.part->removed()) base::raise(base::errors::invalidRequest);
  }

  std::int32_t count() { return static_cast<std::int32_t>(self().nodes().size()); }
  host::ObjectRef item(Arguments arguments) { return makeShape(this->host(), {sheet_, find(arguments[0])}); }
  /// The shapes that indexes and names mean, in that order; all without an argument.
  host::ObjectRef range(Arguments arguments) {
    if (!argument(arguments, 0)) return makeShapeRange(this->host(), keys(sheet_, self().nodes()));
    std::vector<pugi::xml_node> chosen;
    for (const Value& which : arguments) chosen.push_back(find(which));
    return makeShapeRange(this->host(), keys(sheet_, chosen));
  }

 protected:
  static constexpr std::size_t mostOfRange = 255;
  const Sheet& sheet() const { return sheet_; }
  std::shared_ptr<SheetIndex> index() const { return SheetIndex::of(sheet_); }
  pugi::xml_node named(const std::string& name) { return findNamed(self().nodes(), name); }

 private:
  T& self() { return static_cast<T&>(*this); }
  /// The shape that an index from 1 or a name means.
  pugi::xml_node find(const Value& which) {
    if (!which.isString()) {
      const auto& shapes = self().nodes();
      return shapes[collectionIndex(which.toInt(), shapes.size())];
    }
    const std::string wanted = which.toString();
    const pugi::xml_node found = self().named(wanted);
    if (!found) {
      base::raise(base::errors::outOfRange,
                  "Item " + wanted + " not found in the " + T::className + " collection.");
    }
    return found;
  }
  Sheet sheet_;
};

class PlaceholdersObject : public ShapeCollection<PlaceholdersObject> {
 public:
  static constexpr const char* className = "Placeholders";
  static const MemberTable<PlaceholdersObject>& members() {
    static const MemberTable<PlaceholdersObject> table{
        property<&PlaceholdersObject::count, PlaceholdersObject>(member::Count),
        method<&PlaceholdersObject::item, PlaceholdersObject>(member::Item, 1),
    };
    return table;
  }
  using ShapeCollection::ShapeCollection;

  /// The title first, the others from back to front.
  std::vector<pugi::xml_node> nodes() {
    std::vector<pugi::xml_node> found = index()->shapes();
    std::erase_if(found, [](pugi::xml_node shape) { return !placeholderElement(shape); });
    std::ranges::stable_partition(found, isTitle);
    return found;
  }
};

class GroupShapesObject : public ShapeCollection<GroupShapesObject> {
 public:
  static constexpr const char* className = "GroupShapes";
  static const MemberTable<GroupShapesObject>& members() {
    static const MemberTable<GroupShapesObject> table{
        property<&GroupShapesObject::count, GroupShapesObject>(member::Count),
        method<&GroupShapesObject::item, GroupShapesObject>(member::Item, 1),
        method<&GroupShapesObject::range, GroupShapesObject>(member::Range, 0, mostOfRange),
    };
    return table;
  }
  GroupShapesObject(HostRef host, const ShapeKey& group)
      : ShapeCollection(std::move(host), group.sheet), group_(group) {}
  void requireAlive() const {
    if (group_.deleted()) base::raise(base::errors::invalidRequest);
  }

  const std::vector<pugi::xml_node>& nodes() { return index()->leaves(group_.node); }

 private:
  ShapeKey group_;
};

class ShapesObject : public ShapeCollection<ShapesObject> {
 public:
  static constexpr const char* className = "Shapes";
  static const MemberTable<ShapesObject>& members() {
    static const MemberTable<ShapesObject> table{
        property<&ShapesObject::count, ShapesObject>(member::Count),
        method<&ShapesObject::item, ShapesObject>(member::Item, 1),
        method<&ShapesObject::range, ShapesObject>(member::Range, 0, mostOfRange),
        method<&ShapesObject::addShape>(member::AddShape, 5),
        method<&ShapesObject::addTextBox>(member::AddTextbox, 3, 5),
        method<&ShapesObject::addPlaceholder>(member::AddPlaceholder, 1, 5),
        method<&ShapesObject::paste>(member::Paste),
        property<&ShapesObject::placeholders>(member::Placeholders),
        property<&ShapesObject::hasTitle>(member::HasTitle),
        property<&ShapesObject::title>(member::Title),
        property<&ShapesObject::parent>(member::Parent),
    };
    return table;
  }
  using ShapeCollection::ShapeCollection;

  const std::vector<pugi::xml_node>& nodes() { return index()->shapes(); }
  pugi::xml_node named(const std::string& name) { return index()->named(name); }

  host::ObjectRef addShape(Arguments arguments) {
    return makeShape(host(), addAutoShape(sheet(), arguments[0].toInt(), frame(arguments)));
  }
  host::ObjectRef addTextBox(Arguments arguments) {
    return makeShape(host(), deck::addTextBox(sheet(), arguments[0].toInt(), frame(arguments)));
  }
  /// A measure that is left out or -1 is the layout's.
  host::ObjectRef addPlaceholder(Arguments arguments) {
    host::ObjectRef shape = makeShape(host(), deck::addPlaceholder(sheet(), arguments[0].toInt()));
    static constexpr Member measures[] = {member::Left, member::Top, member::Width, member::Height};
    for (std::size_t i = 0; i < std::size(measures); ++i) {
      const float points = argumentOr(arguments, i + 1, -1.0F);
      if (points != -1) shape->invoke(measures[i], Invoke::put, std::array{Value(points)});
    }
    return shape;
  }
  host::ObjectRef paste() { return makeShapeRange(host(), host()->clipboard.pasteShapes(sheet())); }
  host::ObjectRef placeholders() { return std::make_shared<PlaceholdersObject>(host(), sheet()); }
  std::int32_t hasTitle() { return titleNode() ? host::msoTrue : host::msoFalse; }
  host::ObjectRef title() {
    const pugi::xml_node found = titleNode();
    if (!found) {
      base::raise(base::errors::invalidRequest, "Shapes.Title: Invalid request. The slide has no title.");
    }
    return makeShape(host(), {sheet(), found});
  }
  host::ObjectRef parent() { return makeSlide(host(), sheet()); }

 private:
  /// Left, top, width and height behind the first argument; a size that is left out is an inch.
  static NewFrame frame(Arguments arguments) {
    constexpr float usual = 72;
    return {arguments[1].toFloat(), arguments[2].toFloat(), argumentOr(arguments, 3, usual),
            argumentOr(arguments, 4, usual)};
  }
  pugi::xml_node titleNode() {
    const std::vector<pugi::xml_node>& all = nodes();
    const auto found = std::ranges::find_if(all, isTitle);
    return found != all.end() ? *found : pugi::xml_node();
  }
};

}  // namespace

std::vector<ShapeKey> shapesOf(const Sheet& sheet) { return keys(sheet, SheetIndex::of(sheet)->shapes()); }

host::ObjectRef makeShapes(const HostRef& host, const Sheet& sheet) {
  return std::make_shared<ShapesObject>(host, sheet);
}

host::ObjectRef makeGroupShapes(const HostRef& host, const ShapeKey& group) {
  return std::make_shared<GroupShapesObject>(host, group);
}

}  // namespace vellumark::deck
