// Several objects as one.

#include "deck/model/member_table.h"
#include "deck/model/objects.h"

namespace vellumark::deck {
namespace {

/// One answer from those of all objects: the common value, objects again as one object, -2 (in the kind of
/// number that the member has) where numbers differ, an empty text where texts do.
Value combined(std::vector<Value> values) {
  if (values.front().isObject()) {
    std::vector<host::ObjectRef> objects;
    for (const Value& value : values) objects.push_back(value.toObject());
    std::string typeName = objects.front()->typeName();
    return makeGroup(std::move(typeName), std::move(objects));
  }
  if (std::ranges::all_of(values, [&](const Value& value) { return value == values.front(); })) {
    return std::move(values.front());
  }
  if (values.front().isString()) return Value(std::string());
  if (values.front().isFloating()) return Value(static_cast<float>(host::mixed));
  return Value(host::mixed);
}

class GroupObject : public host::Object {
 public:
  GroupObject(std::string typeName, std::vector<host::ObjectRef> objects)
      : typeName_(std::move(typeName)), objects_(std::move(objects)) {}

  std::string typeName() const override { return typeName_; }

  Value invoke(Member name, Invoke kind, Arguments arguments) override {
    std::vector<Value> values;
    values.reserve(objects_.size());
    for (const host::ObjectRef& object : objects_) values.push_back(object->invoke(name, kind, arguments));
    return kind == Invoke::put ? Value() : combined(std::move(values));
  }

 private:
  std::string typeName_;
  std::vector<host::ObjectRef> objects_;
};

}  // namespace

host::ObjectRef makeGroup(std::string typeName, std::vector<host::ObjectRef> objects) {
  if (objects.empty()) base::raise(base::errors::invalidRequest);
  if (objects.size() == 1) return std::move(objects.front());
  return std::make_shared<GroupObject>(std::move(typeName), std::move(objects));
}

}  // namespace vellumark::deck
