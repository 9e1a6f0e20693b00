#include "addin/win32/running_add_in.h"

#include <windows.h>

#include <iterator>

#include "addin/win32/module.h"
#include "base/conversions.h"

namespace vellumark::addin::win32 {
namespace {

/// As the user has set it for all programs; the C library of this system knows only the language's.
char decimalSeparator() {
  wchar_t text[4] = {};
  GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, text, static_cast<int>(std::size(text)));
  return text[0] == L',' ? ',' : '.';
}

}  // namespace

std::shared_ptr<RunningAddIn> RunningAddIn::get() {
  static std::weak_ptr<RunningAddIn> running;
  std::shared_ptr<RunningAddIn> one = running.lock();
  if (!one) running = one = std::make_shared<RunningAddIn>();
  return one;
}

RunningAddIn::RunningAddIn() : toolkitBefore_(ui::setToolkit(&toolkit_)), connect_(moduleFolder()) {
  base::setDecimalSeparator(decimalSeparator());
}

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
