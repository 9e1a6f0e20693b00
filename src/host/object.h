#pragma once
// The seam to the host: every object answers a member name with a value, whoever implements it.

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "host/member.h"
#include "host/value.h"

namespace vellumark::host {

enum class Invoke { get, put, call };

/// One object of the host. Failures are base::Error with the number that PowerPoint gives.
class Object {
 public:
  virtual ~Object() = default;
  /// The host's name of the class: "Shape", "TextFrame", ...
  virtual std::string typeName() const = 0;
  /// Reads, writes (the new value is the last argument) or calls a member; 438 where the object has no such
  /// member.
  virtual Value invoke(Member member, Invoke kind, std::span<const Value> arguments) = 0;
};

/// Receives the events of an object. An argument that the host passes by reference may be changed in place.
using EventHandler = std::function<void(Member event, std::span<Value> arguments)>;

/// Holds an event handler connected; letting go of it disconnects. Outlives its source safely.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::function<void()> disconnect) : disconnect_(std::move(disconnect)) {}
  Subscription(Subscription&& other) noexcept : disconnect_(std::exchange(other.disconnect_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    reset();
    disconnect_ = std::exchange(other.disconnect_, nullptr);
    return *this;
  }
  ~Subscription() { reset(); }
  void reset() {
    if (auto disconnect = std::exchange(disconnect_, nullptr)) disconnect();
  }
  explicit operator bool() const { return static_cast<bool>(disconnect_); }

 private:
  std::function<void()> disconnect_;
};

/// An object that raises events: the application, and the controls of command bars.
class EventSource {
 public:
  virtual ~EventSource() = default;
  /// Events reach `handler` synchronously, on the host's one thread, until the subscription ends.
  virtual Subscription subscribe(EventHandler handler) = 0;
};

/// Connects a handler to an object's events; 438 where the object raises none.
Subscription subscribe(const ObjectRef& source, EventHandler handler);

/// Late binding: members by name, as a script calls them.
Value getByName(const ObjectRef& object, std::string_view name, std::span<const Value> arguments = {});
void putByName(const ObjectRef& object, std::string_view name, const Value& value);
Value callByName(const ObjectRef& object, std::string_view name, std::span<const Value> arguments = {});

}  // namespace vellumark::host
