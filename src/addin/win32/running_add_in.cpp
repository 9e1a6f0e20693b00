#include "addin/win32/running_add_in.h"

#include "addin/win32/module.h"

namespace vellumark::addin::win32 {

std::shared_ptr<RunningAddIn> RunningAddIn::get() {
  static std::weak_ptr<RunningAddIn> running;
  std::shared_ptr<RunningAddIn> one = running.lock();
  if (!one) running = one = std::make_shared<RunningAddIn>();
  return one;
}

RunningAddIn::RunningAddIn() : toolkitBefore_(ui::setToolkit(&toolkit_)), connect_(moduleFolder()) {}

RunningAddIn::~RunningAddIn() { ui::setToolkit(toolkitBefore_); }

void RunningAddIn::start(const host::Application& application, std::int32_t connectMode,
                         const host::COMAddIn& addInInst, std::span<const host::Value> custom) {
  if (connections_++ > 0) return;
  connect_.IDTExtensibility2_OnConnection(application, connectMode, addInInst, custom);
}

void RunningAddIn::stop(std::int32_t removeMode, std::span<const host::Value> custom) {
  if (--connections_ > 0) return;
  connect_.IDTExtensibility2_OnDisconnection(removeMode, custom);
}

}  // namespace vellumark::addin::win32
