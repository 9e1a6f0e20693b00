#pragma once
// An object of the seam that tests serve over COM: it answers what it was given, fails as it is told, and
// raises events.

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "host/automation/automation_object.h"
#include "host/automation/variant.h"

namespace vellumark::host::automation::test {

class Probe : public Object, public EventSource {
 public:
  explicit Probe(std::string type = "Probe") : type_(std::move(type)) {}

  std::string typeName() const override { return type_; }
  Value invoke(Member member, Invoke kind, std::span<const Value> arguments) override {
    if (member == Member("Unknown")) base::raise(base::errors::noSuchMember);
    last = {member.name(), kind, {arguments.begin(), arguments.end()}};
    if (failure) throw *failure;
    return answer;
  }
  Subscription subscribe(EventHandler handler) override {
    this->handler = std::move(handler);
    return Subscription([this] { this->handler = nullptr; });
  }

  struct Call {
    std::string member;
    Invoke kind = Invoke::get;
    std::vector<Value> arguments;
  };
  Call last;
  Value answer;
  std::optional<base::Error> failure;
  EventHandler handler;

 private:
  std::string type_;
};

/// A probe, seen through COM.
struct Served {
  explicit Served(const std::string& type = "Probe")
      : probe(std::make_shared<Probe>(type)), object(std::make_shared<AutomationObject>(wrap(probe).Get())) {}
  Value call(const char* member, std::vector<Value> arguments = {}, Invoke kind = Invoke::call) {
    return object->invoke(Member(member), kind, arguments);
  }
  std::shared_ptr<Probe> probe;
  std::shared_ptr<AutomationObject> object;
};

}  // namespace vellumark::host::automation::test
