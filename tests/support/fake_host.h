#pragma once
// A host made of plain values: an object that answers from a table of members and raises events on demand.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "host/object.h"

namespace vellumark::test {

/// Members are values, which can be read and written, or functions. Anything else is 438.
class FakeObject : public host::Object, public host::EventSource {
 public:
  using Function = std::function<host::Value(std::span<const host::Value>)>;

  explicit FakeObject(std::string typeName, std::map<std::string, host::Value> values = {},
                      std::map<std::string, Function> functions = {})
      : typeName_(std::move(typeName)), values_(std::move(values)), functions_(std::move(functions)) {}

  std::string typeName() const override { return typeName_; }
  host::Value invoke(host::Member member, host::Invoke kind,
                     std::span<const host::Value> arguments) override {
    if (const auto function = functions_.find(member.name()); function != functions_.end()) {
      return function->second(arguments);
    }
    const auto value = values_.find(member.name());
    if (value == values_.end()) base::raise(base::errors::noSuchMember);
    if (kind == host::Invoke::put) value->second = arguments.back();
    return value->second;
  }
  host::Subscription subscribe(host::EventHandler handler) override {
    *handler_ = std::move(handler);
    return host::Subscription([handler = handler_] { *handler = nullptr; });
  }

  host::Value& operator[](const std::string& member) { return values_[member]; }
  bool hasListener() const { return *handler_ != nullptr; }

 private:
  std::string typeName_;
  std::map<std::string, host::Value> values_;
  std::map<std::string, Function> functions_;
  std::shared_ptr<host::EventHandler> handler_ = std::make_shared<host::EventHandler>();
};

}  // namespace vellumark::test
