#include "add_in.h"
#include "addin/callbacks.h"
#include "addin/connect.h"
#include "base/error.h"
#include "platform/paths.h"

namespace vellumark::app {
namespace {

class BuiltInAddIn : public AddIn {
 public:
  explicit BuiltInAddIn(const std::filesystem::path& installation)
      : connect_(platform::fromSystem(platform::textOf(installation / "addin"))) {}

  void connect(const host::Application& application) override {
    connect_.IDTExtensibility2_OnConnection(application, {}, {}, {});
  }
  void disconnect() override { connect_.IDTExtensibility2_OnDisconnection({}, {}); }
  host::Value callBack(std::string_view name, std::span<const host::Value> arguments) override {
    const addin::Callback* callback = addin::findCallback(name);
    if (!callback) base::raise(base::errors::noSuchMember);
    return addin::callBack(*callback, connect_, arguments);
  }
  std::string customUi() override {
    return connect_.IRibbonExtensibility_GetCustomUI("Microsoft.PowerPoint.Presentation");
  }

 private:
  addin::Connect connect_;
};

}  // namespace

std::unique_ptr<AddIn> builtInAddIn(const std::filesystem::path& installation) {
  return std::make_unique<BuiltInAddIn>(installation);
}

}  // namespace vellumark::app
