#include "host/object.h"

#include "base/error.h"
#include "host/running_call.h"

namespace vellumark::host {
namespace {
Object& existing(const ObjectRef& object) {
  if (!object) base::raise(base::errors::objectNotSet);
  return *object;
}
}  // namespace

Subscription subscribe(const ObjectRef& source, EventHandler handler) {
  auto* events = dynamic_cast<EventSource*>(&existing(source));
  if (!events) base::raise(base::errors::noSuchMember);
  return events->subscribe([handler = std::move(handler)](Member event, std::span<Value> arguments) {
    const RunningCall call;
    handler(event, arguments);
  });
}

Value getByName(const ObjectRef& object, std::string_view name, std::span<const Value> arguments) {
  return existing(object).invoke(Member(name), Invoke::get, arguments);
}

void putByName(const ObjectRef& object, std::string_view name, const Value& value) {
  existing(object).invoke(Member(name), Invoke::put, {&value, 1});
}

Value callByName(const ObjectRef& object, std::string_view name, std::span<const Value> arguments) {
  return existing(object).invoke(Member(name), Invoke::call, arguments);
}

}  // namespace vellumark::host
