#include "add_in.h"
#include "addin/callbacks.h"
#include "addin/connect.h"
#include "base/error.h"
#include "platform/library.h"
#include "platform/paths.h"
#include "ui/png_painter.h"

namespace vellumark::app {
namespace {

/// The painter of the toolkit's module, which is loaded with the first picture.
bool paintPng(const platform::Drawing& drawing, const ui::PngFile& file) {
  using Painter = bool(const platform::Drawing&, const ui::PngFile&);
  static Painter* const paint =
      platform::Library::besideExecutable("vellumark_qt").function<Painter>("vellumark_paint_png");
  return paint(drawing, file);
}

class BuiltInAddIn : public AddIn {
 public:
  explicit BuiltInAddIn(const std::filesystem::path& installation)
      : connect_(platform::fromSystem(platform::textOf(installation / "addin"))) {
    ui::setPngPainter(paintPng);
  }

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
