#include "windows/com_add_in.h"

#include "addin/win32/interfaces.h"
#include "failure.h"
#include "host/automation/failures.h"
#include "host/automation/variant.h"

namespace vellumark::app {
namespace {

using addin::win32::IDTExtensibility2;
using addin::win32::IRibbonExtensibility;
using host::automation::ComPtr;

/// The add-in as its host knows it.
class ComAddInEntry : public host::Object {
 public:
  std::string typeName() const override { return "COMAddIn"; }
  host::Value invoke(host::Member member, host::Invoke kind, std::span<const host::Value>) override {
    if (kind != host::Invoke::put) {
      if (member == host::member::ProgId) return host::Value(addin::win32::connectProgId);
      if (member == host::member::Connect) return host::Value(true);
    }
    base::raise(base::errors::noSuchMember);
  }
};

/// The array of further arguments that hosts hand over: here, as in PowerPoint, an empty one.
class NoArguments {
 public:
  NoArguments() : array_(SafeArrayCreateVector(VT_VARIANT, 1, 0)) {}
  ~NoArguments() { SafeArrayDestroy(array_); }
  NoArguments(const NoArguments&) = delete;
  NoArguments& operator=(const NoArguments&) = delete;
  SAFEARRAY** get() { return &array_; }

 private:
  SAFEARRAY* array_;
};

/// A failure of the add-in's interfaces, with what its error information tells.
void check(HRESULT result, const std::string& what) {
  if (SUCCEEDED(result)) return;
  std::string told;
  ComPtr<IErrorInfo> info;
  host::automation::Bstr description;
  if (GetErrorInfo(0, &info) == S_OK && SUCCEEDED(info->GetDescription(description.out()))) {
    told = host::automation::fromBstr(description.get());
  }
  char number[16];
  std::snprintf(number, sizeof number, "%08lX", static_cast<unsigned long>(result));
  throw Failure(Exit::refused, what + " failed with " + number + (told.empty() ? "" : ": " + told));
}

class ComAddIn : public AddIn {
 public:
  ComAddIn() {
    CLSID id;
    const std::string progId = addin::win32::connectProgId;
    check(CLSIDFromProgID(host::automation::toWide(progId).c_str(), &id),
          progId + ": the add-in is not registered (regsvr32 zorp.dll); looking it up");
    check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object_)),
          progId + ": making the add-in");
    check(query(addin::win32::addInInterface, extensibility_), progId + ": its add-in interface");
    check(query(addin::win32::ribbonInterface, ribbon_), progId + ": its ribbon interface");
  }

  void connect(const host::Application& application) override {
    constexpr int atStartup = 1;
    const auto entry = host::automation::wrap(entry_);
    const auto served = host::automation::wrap(application.object());
    check(extensibility_->OnConnection(served.Get(), atStartup, entry.Get(), NoArguments().get()),
          "OnConnection");
    check(extensibility_->OnAddInsUpdate(NoArguments().get()), "OnAddInsUpdate");
    check(extensibility_->OnStartupComplete(NoArguments().get()), "OnStartupComplete");
  }

  void disconnect() override {
    constexpr int hostShutdown = 0;
    extensibility_->OnBeginShutdown(NoArguments().get());
    check(extensibility_->OnDisconnection(hostShutdown, NoArguments().get()), "OnDisconnection");
  }

  host::Value callBack(std::string_view name, std::span<const host::Value> arguments) override {
    return host::callByName(host::automation::unwrap(object_.Get()), name, arguments);
  }

  std::string customUi() override {
    host::automation::Bstr definition;
    const host::automation::Bstr window("Microsoft.PowerPoint.Presentation");
    const HRESULT result = ribbon_->GetCustomUI(window.get(), definition.out());
    if (FAILED(result)) host::automation::raiseFor(result);
    return host::automation::fromBstr(definition.get());
  }

 private:
  template <typename Interface>
  HRESULT query(REFIID id, ComPtr<Interface>& face) {
    return object_->QueryInterface(id, reinterpret_cast<void**>(face.GetAddressOf()));
  }

  ComPtr<IDispatch> object_;
  ComPtr<IDTExtensibility2> extensibility_;
  ComPtr<IRibbonExtensibility> ribbon_;
  host::ObjectRef entry_ = std::make_shared<ComAddInEntry>();
};

}  // namespace

std::unique_ptr<AddIn> comAddIn(const std::filesystem::path&) { return std::make_unique<ComAddIn>(); }

bool addInIsUnloaded() {
  CoFreeUnusedLibrariesEx(0, 0);
  return GetModuleHandleW(L"zorp.dll") == nullptr;
}

}  // namespace vellumark::app
