#pragma once
// How a class of the embedded host declares its members: a table from member name to getter, setter or
// method.

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/error.h"
#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

using host::Invoke;
using host::Member;
using host::Value;
using Arguments = std::span<const Value>;
namespace member = host::member;

namespace detail {

template <typename>
struct MemberTraits;
template <typename C, typename R, typename... A>
struct MemberTraits<R (C::*)(A...)> {
  using Class = C;
  using Result = R;
  static constexpr std::size_t arity = sizeof...(A);
  template <std::size_t I>
  using Argument = std::decay_t<std::tuple_element_t<I, std::tuple<A...>>>;
};
template <typename C, typename R, typename... A>
struct MemberTraits<R (C::*)(A...) const> : MemberTraits<R (C::*)(A...)> {};

}  // namespace detail

/// One member of class T. `read` serves property reads and calls, `write` serves puts (the new value comes
/// last). Hosts before version `since` lack the member.
template <typename T>
struct MemberEntry {
  Member name;
  Value (*read)(T&, Arguments) = nullptr;
  void (*write)(T&, Arguments) = nullptr;
  std::size_t fewestArguments = 0;
  std::size_t mostArguments = 0;
  double since = 0;

  MemberEntry from(double version) const {
    MemberEntry entry = *this;
    entry.since = version;
    return entry;
  }
};

/// A property that can only be read: `property<&Shape::type>(member::Type)`.
template <auto Getter, typename T = typename detail::MemberTraits<decltype(Getter)>::Class>
MemberEntry<T> property(Member name) {
  return {name, [](T& object, Arguments) -> Value { return Value((object.*Getter)()); }};
}

/// A property that can be read and written: `property<&Shape::left, &Shape::setLeft>(member::Left)`.
template <auto Getter, auto Setter, typename T = typename detail::MemberTraits<decltype(Getter)>::Class>
requires std::is_member_function_pointer_v<decltype(Setter)> MemberEntry<T> property(Member name) {
  using New = typename detail::MemberTraits<decltype(Setter)>::template Argument<0>;
  return {name, [](T& object, Arguments) -> Value { return Value((object.*Getter)()); },
          [](T& object, Arguments arguments) { (object.*Setter)(arguments.back().template as<New>()); }};
}

/// A method, or a property with arguments, `Value f(Arguments)` or `void f(Arguments)`, with the number of
/// arguments it takes.
template <auto Method, typename T = typename detail::MemberTraits<decltype(Method)>::Class>
MemberEntry<T> method(Member name, std::size_t fewest = 0, std::size_t most = 0) {
  using Traits = detail::MemberTraits<decltype(Method)>;
  return {name,
          [](T& object, Arguments arguments) -> Value {
            if constexpr (Traits::arity == 0) {
              if constexpr (std::is_void_v<typename Traits::Result>) {
                (object.*Method)();
                return {};
              } else {
                return Value((object.*Method)());
              }
            } else if constexpr (std::is_void_v<typename Traits::Result>) {
              (object.*Method)(arguments);
              return {};
            } else {
              return Value((object.*Method)(arguments));
            }
          },
          nullptr, fewest, std::max(fewest, most)};
}

/// A property with arguments that can be written too: `Item(index)` and `Item(index) = value`.
template <auto Getter, auto Setter, typename T = typename detail::MemberTraits<decltype(Getter)>::Class>
MemberEntry<T> indexed(Member name, std::size_t fewest, std::size_t most) {
  return {name, [](T& object, Arguments arguments) -> Value { return Value((object.*Getter)(arguments)); },
          [](T& object, Arguments arguments) { (object.*Setter)(arguments); }, fewest, most};
}

/// All members of class T, found by number in constant time.
template <typename T>
class MemberTable {
 public:
  MemberTable(std::initializer_list<MemberEntry<T>> entries) : entries_(entries) {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      const std::size_t id = entries_[i].name.id();
      if (id >= places_.size()) places_.resize(id + 1, 0);
      places_[id] = static_cast<std::uint16_t>(i + 1);
    }
  }
  const MemberEntry<T>* find(Member name) const {
    const std::size_t id = name.id();
    return id < places_.size() && places_[id] ? &entries_[places_[id] - 1u] : nullptr;
  }

 private:
  std::vector<MemberEntry<T>> entries_;
  std::vector<std::uint16_t> places_;
};

/// A broken file met in the middle of a member is the host's unspecific failure; the description tells what
/// is wrong.
[[noreturn]] void raiseFormatError(const FormatError& error);

/// Base of all objects of the model. T has `static const MemberTable<T>& members()` and
/// `static constexpr const char* className`; it may hide `requireAlive()`, which runs before each member and
/// raises "Invalid request." where what the object stands for is gone.
template <typename T>
class ModelObject : public host::Object, public std::enable_shared_from_this<T> {
 public:
  explicit ModelObject(HostRef host) : host_(std::move(host)) {}

  std::string typeName() const override { return T::className; }

  Value invoke(Member name, Invoke kind, Arguments arguments) override {
    try {
      return dispatch(static_cast<T&>(*this), name, kind, arguments);
    } catch (const FormatError& error) {
      raiseFormatError(error);
    }
  }

  void requireAlive() const {}
  const HostRef& host() const { return host_; }

 private:
  Value dispatch(T& self, Member name, Invoke kind, Arguments arguments) {
    const MemberEntry<T>* entry = T::members().find(name);
    const double version = host_->versionNumber();
    if (!entry || version < entry->since) base::raise(base::errors::noSuchMember);
    self.requireAlive();
    const std::size_t own = arguments.size() - (kind == Invoke::put && !arguments.empty() ? 1 : 0);
    if (own > entry->mostArguments || own < entry->fewestArguments) {
      base::raise(base::errors::wrongArgumentCount);
    }
    if (kind == Invoke::put) {
      if (!entry->write || arguments.empty()) base::raise(base::errors::noSuchMember);
      entry->write(self, arguments);
      return {};
    }
    return entry->read(self, arguments);
  }

  HostRef host_;
};

/// The argument at a place, or nothing where it is left out.
inline const Value* argument(Arguments arguments, std::size_t place) {
  return place < arguments.size() && !arguments[place].isMissing() && !arguments[place].isEmpty()
             ? &arguments[place]
             : nullptr;
}
template <typename T>
T argumentOr(Arguments arguments, std::size_t place, T otherwise) {
  const Value* value = argument(arguments, place);
  return value ? value->template as<T>() : otherwise;
}

/// The place (from 0) that a collection's index names: 1 to `count`; "Integer out of range." otherwise.
std::size_t collectionIndex(std::int32_t index, std::size_t count);

}  // namespace vellumark::deck
