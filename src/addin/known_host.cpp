#include "addin/known_host.h"

#include "base/conversions.h"
#include "core/registry.h"

namespace vellumark::addin {
namespace {

constexpr const char* lastKnownVersion = "14.0";

/// A host's application that answers the last known version.
class LaterHost : public host::Object, public host::EventSource {
 public:
  explicit LaterHost(host::ObjectRef application) : application_(std::move(application)) {}

  std::string typeName() const override { return application_->typeName(); }
  host::Value invoke(host::Member member, host::Invoke kind,
                     std::span<const host::Value> arguments) override {
    const bool asksVersion =
        member == host::member::Version && kind != host::Invoke::put && arguments.empty();
    return asksVersion ? host::Value(lastKnownVersion) : application_->invoke(member, kind, arguments);
  }
  host::Subscription subscribe(host::EventHandler handler) override {
    return host::subscribe(application_, std::move(handler));
  }

 private:
  host::ObjectRef application_;
};

}  // namespace

host::Application knownHost(const host::Application& application) {
  const bool later = base::val(application.Version()) > base::val(lastKnownVersion);
  if (!later || base::toBool(core::getRegistry("hostVersionAsReported", "", "0"))) return application;
  return host::Application(std::make_shared<LaterHost>(application.object()));
}

}  // namespace vellumark::addin
