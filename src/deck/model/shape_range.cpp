// Shapes in an order of their own, above all that of selecting.

#include "deck/model/member_table.h"
#include "deck/model/objects.h"
#include "deck/model/shape_actions.h"
#include "host/constants.h"

namespace vellumark::deck {
namespace {

class ShapeRangeObject : public ModelObject<ShapeRangeObject> {
 public:
  static constexpr const char* className = "ShapeRange";
  static const MemberTable<ShapeRangeObject>& members() {
    static const MemberTable<ShapeRangeObject> table{
        property<&ShapeRangeObject::count>(member::Count),
        method<&ShapeRangeObject::item>(member::Item, 1),
        property<&ShapeRangeObject::parent>(member::Parent),
        method<&ShapeRangeObject::zOrder>(member::ZOrder, 1),
        method<&ShapeRangeObject::select>(member::Select, 0, 1),
        method<&ShapeRangeObject::copy>(member::Copy),
        method<&ShapeRangeObject::cut>(member::Cut),
        method<&ShapeRangeObject::duplicate>(member::Duplicate),
        method<&ShapeRangeObject::remove>(member::Delete),
    };
    return table;
  }

  ShapeRangeObject(HostRef host, std::vector<ShapeKey> shapes)
      : ModelObject(std::move(host)), shapes_(std::move(shapes)) {}

  /// The range itself answers for how many there are and for what is done to them together; everything else
  /// is asked of the shapes.
  Value invoke(Member name, Invoke kind, Arguments arguments) override {
    if (members().find(name)) return ModelObject::invoke(name, kind, arguments);
    if (shapes_.size() == 1) return shape(0)->invoke(name, kind, arguments);
    std::vector<host::ObjectRef> all;
    all.reserve(shapes_.size());
    for (std::size_t i = 0; i < shapes_.size(); ++i) all.push_back(shape(i));
    return makeGroup(className, std::move(all))->invoke(name, kind, arguments);
  }

  std::int32_t count() { return static_cast<std::int32_t>(shapes_.size()); }
  host::ObjectRef item(Arguments arguments) {
    if (arguments[0].isString()) return itemNamed(arguments[0].toString());
    return shape(collectionIndex(arguments[0].toInt(), shapes_.size()));
  }
  host::ObjectRef parent() { return makeSlide(host(), alive().front().sheet); }
  void zOrder(Arguments arguments) { changeZOrder(alive(), arguments[0].toInt()); }
  void select(Arguments arguments) {
    selectShapes(host(), alive(), argumentOr<std::int32_t>(arguments, 0, host::msoTrue) != 0);
  }
  void copy() { host()->clipboard.copyShapes(alive()); }
  void cut() {
    copy();
    remove();
  }
  host::ObjectRef duplicate() { return makeShapeRange(host(), duplicateShapes(alive())); }
  void remove() { deleteShapes(host(), alive()); }

 private:
  host::ObjectRef shape(std::size_t place) { return makeShape(host(), shapes_[place]); }

  host::ObjectRef itemNamed(const std::string& name) {
    for (std::size_t i = 0; i < shapes_.size(); ++i) {
      host::ObjectRef found = shape(i);
      if (found->invoke(member::Name, Invoke::get, {}).toString() == name) return found;
    }
    base::raise(base::errors::outOfRange, "Item " + name + " not found in the ShapeRange collection.");
  }

  /// The shapes, none of them deleted.
  const std::vector<ShapeKey>& alive() const {
    for (const ShapeKey& shape : shapes_) {
      if (shape.deleted()) base::raise(base::errors::invalidRequest);
    }
    if (shapes_.empty()) base::raise(base::errors::invalidRequest);
    return shapes_;
  }

  std::vector<ShapeKey> shapes_;
};

}  // namespace

host::ObjectRef makeShapeRange(const HostRef& host, std::vector<ShapeKey> shapes) {
  return std::make_shared<ShapeRangeObject>(host, std::move(shapes));
}

}  // namespace vellumark::deck
