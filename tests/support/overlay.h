#pragma once
// An object of a host with some members replaced.

#include <map>
#include <string>
#include <utility>

#include "support/fake_host.h"

namespace vellumark::test {

/// Answers the members of the table by its functions, and everything else as the object below does.
class Overlay : public host::Object, public host::EventSource {
 public:
  using Function = FakeObject::Function;

  Overlay(host::ObjectRef below, std::map<std::string, Function> functions)
      : below_(std::move(below)), functions_(std::move(functions)) {}

  std::string typeName() const override { return below_->typeName(); }
  host::Value invoke(host::Member member, host::Invoke kind,
                     std::span<const host::Value> arguments) override {
    const auto function = functions_.find(member.name());
    return function != functions_.end() ? function->second(arguments)
                                        : below_->invoke(member, kind, arguments);
  }
  host::Subscription subscribe(host::EventHandler handler) override {
    return host::subscribe(below_, std::move(handler));
  }

 private:
  host::ObjectRef below_;
  std::map<std::string, Function> functions_;
};

/// The object with a member that answers always the same.
inline host::ObjectRef overlaid(host::ObjectRef below, const std::string& member, host::Value value) {
  return std::make_shared<Overlay>(
      std::move(below),
      std::map<std::string, Overlay::Function>{
          {member, [value = std::move(value)](std::span<const host::Value>) { return value; }}});
}

}  // namespace vellumark::test
