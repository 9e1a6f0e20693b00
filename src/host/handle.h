#pragma once
// What all classes of the typed facade share: a reference to the object, and typed access to its members.

#include <array>
#include <utility>

#include "base/error.h"
#include "host/object.h"

namespace vellumark::host {

/// A reference to an object of the host, possibly to nothing. Using a member of nothing raises 91. Every read
/// asks the host; nothing is cached.
class Handle {
 public:
  Handle() = default;
  explicit Handle(ObjectRef object) : object_(std::move(object)) {}

  const ObjectRef& object() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  /// Whether both are the very same object of the host.
  friend bool operator==(const Handle& a, const Handle& b) { return a.object_ == b.object_; }

 protected:
  template <typename T, typename... Arguments>
  T get(Member member, Arguments&&... arguments) const {
    return invoke(member, Invoke::get, std::forward<Arguments>(arguments)...).template as<T>();
  }
  template <typename T>
  void put(Member member, T&& value) const {
    invoke(member, Invoke::put, std::forward<T>(value));
  }
  void putTriState(Member member, bool value) const { invoke(member, Invoke::put, triState(value)); }
  template <typename T = void, typename... Arguments>
  T call(Member member, Arguments&&... arguments) const {
    if constexpr (std::is_void_v<T>) {
      invoke(member, Invoke::call, std::forward<Arguments>(arguments)...);
    } else {
      return invoke(member, Invoke::call, std::forward<Arguments>(arguments)...).template as<T>();
    }
  }

 private:
  template <typename Argument>
  static Value wire(Argument&& argument) {
    if constexpr (std::is_base_of_v<Handle, std::decay_t<Argument>>) {
      return Value(argument.object());
    } else if constexpr (std::is_enum_v<std::decay_t<Argument>>) {
      return Value(static_cast<std::int32_t>(argument));
    } else {
      return Value(std::forward<Argument>(argument));
    }
  }
  template <typename... Arguments>
  Value invoke(Member member, Invoke kind, Arguments&&... arguments) const {
    if (!object_) base::raise(base::errors::objectNotSet);
    const std::array<Value, sizeof...(Arguments)> values{wire(std::forward<Arguments>(arguments))...};
    return object_->invoke(member, kind, values);
  }

  ObjectRef object_;
};

}  // namespace vellumark::host
