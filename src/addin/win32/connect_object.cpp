#include "addin/win32/connect_object.h"

#include <vector>

#include "addin/callbacks.h"
#include "addin/win32/face.h"
#include "base/trap.h"
#include "host/automation/failures.h"
#include "host/automation/variant.h"
#include "host/running_call.h"

namespace vellumark::addin::win32 {
namespace {

using host::Value;
using host::automation::ComPtr;
using host::automation::fromVariant;
using host::automation::guarded;
using host::automation::tellCaller;
using host::automation::tellInvoker;

constexpr std::string_view addInNames[] = {"OnConnection", "OnDisconnection", "OnAddInsUpdate",
                                           "OnStartupComplete", "OnBeginShutdown"};
constexpr std::string_view ribbonNames[] = {"GetCustomUI"};

std::vector<Value> valuesOf(const DISPPARAMS& arguments) {
  std::vector<Value> values;
  for (UINT i = arguments.cArgs; i-- > 0;) values.push_back(fromVariant(arguments.rgvarg[i]));
  return values;
}

/// What the host hands over beside the arguments proper. Nobody looks at it, so what the seam has no type for
/// is left empty.
std::vector<Value> customValues(SAFEARRAY* custom) {
  std::vector<Value> values;
  VARIANT* elements = nullptr;
  LONG first = 0, last = -1;
  VARTYPE type = VT_EMPTY;
  if (custom == nullptr || SafeArrayGetDim(custom) != 1 || FAILED(SafeArrayGetVartype(custom, &type)) ||
      type != VT_VARIANT || FAILED(SafeArrayGetLBound(custom, 1, &first)) ||
      FAILED(SafeArrayGetUBound(custom, 1, &last)) ||
      FAILED(SafeArrayAccessData(custom, reinterpret_cast<void**>(&elements)))) {
    return values;
  }
  for (LONG i = 0; i <= last - first; ++i) {
    Value value;
    base::resumeNext([&] { value = fromVariant(elements[i]); });
    values.push_back(std::move(value));
  }
  SafeArrayUnaccessData(custom);
  return values;
}

SAFEARRAY* target(SAFEARRAY** custom) { return custom != nullptr ? *custom : nullptr; }

}  // namespace

/// The add-in interface.
class ConnectObject::AddInFace : public Face<IDTExtensibility2> {
 public:
  explicit AddInFace(ConnectObject& owner)
      : Face(static_cast<IDispatch&>(owner), addInNames), owner_(owner) {}

  HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, int connectMode, IDispatch* addInInst,
                                         SAFEARRAY** custom) override {
    return guarded([&] { owner_.connect(application, connectMode, addInInst, target(custom)); }, &tellCaller);
  }
  HRESULT STDMETHODCALLTYPE OnDisconnection(int removeMode, SAFEARRAY** custom) override {
    return guarded([&] { owner_.disconnect(removeMode, target(custom)); }, &tellCaller);
  }
  HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) override {
    return notify(&Connect::IDTExtensibility2_OnAddInsUpdate, custom);
  }
  HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) override {
    return notify(&Connect::IDTExtensibility2_OnStartupComplete, custom);
  }
  HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) override {
    return notify(&Connect::IDTExtensibility2_OnBeginShutdown, custom);
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                   EXCEPINFO* failure, UINT*) override {
    if (arguments == nullptr) return E_POINTER;
    return guarded([&] { call(number, *arguments); },
                   [&](const base::Error& error) { return tellInvoker(error, failure); });
  }

 private:
  using Event = void (Connect::*)(std::span<const Value>);

  /// What comes while nothing is connected has nobody to go to, and is no failure.
  HRESULT notify(Event event, SAFEARRAY** custom) {
    return guarded(
        [&] {
          if (owner_.running_) (owner_.running_->connect().*event)(customValues(target(custom)));
        },
        &tellCaller);
  }

  void call(DISPID number, const DISPPARAMS& arguments) {
    const std::size_t expected[] = {4, 2, 1, 1, 1};
    if (number < 1 || number > static_cast<DISPID>(std::size(expected)))
      base::raise(base::errors::noSuchMember);
    if (arguments.cArgs != expected[number - 1]) base::raise(base::errors::wrongArgumentCount);
    const VARIANT& last = arguments.rgvarg[0];
    SAFEARRAY** custom = last.vt == (VT_ARRAY | VT_VARIANT | VT_BYREF) ? last.pparray : nullptr;
    const auto at = [&](std::size_t place) {
      return fromVariant(arguments.rgvarg[arguments.cArgs - 1 - place]);
    };
    const auto dispatchAt = [&](std::size_t place) {
      const Value value = at(place);
      return value.isObject() && value != Value(host::ObjectRef()) ? host::automation::wrap(value.toObject())
                                                                   : nullptr;
    };
    switch (number) {
      case 1:
        owner_.connect(dispatchAt(0).Get(), at(1).toInt(), dispatchAt(2).Get(), target(custom));
        break;
      case 2:
        owner_.disconnect(at(0).toInt(), target(custom));
        break;
      case 3:
        OnAddInsUpdate(custom);
        break;
      case 4:
        OnStartupComplete(custom);
        break;
      default:
        OnBeginShutdown(custom);
    }
  }

  ConnectObject& owner_;
};

/// The ribbon interface.
class ConnectObject::RibbonFace : public Face<IRibbonExtensibility> {
 public:
  explicit RibbonFace(ConnectObject& owner)
      : Face(static_cast<IDispatch&>(owner), ribbonNames), owner_(owner) {}

  HRESULT STDMETHODCALLTYPE GetCustomUI(BSTR ribbonId, BSTR* definition) override {
    if (definition == nullptr) return E_POINTER;
    *definition = nullptr;
    return guarded(
        [&] { *definition = host::automation::toBstr(text(host::automation::fromBstr(ribbonId))); },
        &tellCaller);
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result,
                                   EXCEPINFO* failure, UINT*) override {
    if (arguments == nullptr) return E_POINTER;
    return guarded(
        [&] {
          if (number != 1) base::raise(base::errors::noSuchMember);
          if (arguments->cArgs != 1) base::raise(base::errors::wrongArgumentCount);
          const std::string definition = text(fromVariant(arguments->rgvarg[0]).toString());
          if (result != nullptr) *result = host::automation::toVariant(Value(definition));
        },
        [&](const base::Error& error) { return tellInvoker(error, failure); });
  }

 private:
  /// Hosts may ask for the ribbon before they connect.
  std::string text(const std::string& ribbonId) {
    const auto running = owner_.running_ ? owner_.running_ : RunningAddIn::get();
    return running->connect().IRibbonExtensibility_GetCustomUI(ribbonId);
  }

  ConnectObject& owner_;
};

ConnectObject::ConnectObject()
    : addInFace_(std::make_unique<AddInFace>(*this)), ribbonFace_(std::make_unique<RibbonFace>(*this)) {}

ConnectObject::~ConnectObject() {
  base::resumeNext([&] { disconnect(0, nullptr); });
}

void* ConnectObject::find(REFIID id) {
  if (id == IID_IUnknown || id == IID_IDispatch) return static_cast<IDispatch*>(this);
  if (id == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
  if (id == addInInterface) return static_cast<IDTExtensibility2*>(addInFace_.get());
  if (id == ribbonInterface) return static_cast<IRibbonExtensibility*>(ribbonFace_.get());
  return nullptr;
}

void ConnectObject::connect(IDispatch* application, int connectMode, IDispatch* addInInst,
                            SAFEARRAY* custom) {
  if (running_) return;  // the host connects an object once
  const host::RunningCall call;
  running_ = RunningAddIn::get();
  running_->start(host::Application(host::automation::unwrap(application)), connectMode,
                  host::COMAddIn(host::automation::unwrap(addInInst)), customValues(custom));
}

/// The add-in and its toolkit stay under the dialogs that are open, which let the host disconnect.
void ConnectObject::disconnect(int removeMode, SAFEARRAY* custom) {
  auto running = std::exchange(running_, nullptr);
  if (!running) return;
  host::whenNoCallRuns([running = std::move(running), removeMode, values = customValues(custom)] {
    running->stop(removeMode, values);
  });
}

Connect& ConnectObject::addIn() {
  if (!running_) base::raise(base::errors::objectNotSet);
  return running_->connect();
}

HRESULT ConnectObject::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT ConnectObject::GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }

/// A callback's number is its place in the list, from 1.
HRESULT ConnectObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (names == nullptr || ids == nullptr || count == 0) return E_POINTER;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  const Callback* callback = nullptr;
  const HRESULT searched = guarded([&] { callback = findCallback(host::automation::fromWide(names[0])); },
                                   &host::automation::resultFor);
  if (FAILED(searched)) return searched;
  if (callback == nullptr) return DISP_E_UNKNOWNNAME;
  ids[0] = static_cast<DISPID>(callback - callbacks().data() + 1);
  return count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT ConnectObject::Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result,
                              EXCEPINFO* failure, UINT*) {
  if (arguments == nullptr) return E_POINTER;
  const ComPtr<ConnectObject> self(this);
  const host::RunningCall call;
  return guarded(
      [&] {
        const auto all = callbacks();
        if (number < 1 || number > static_cast<DISPID>(all.size())) base::raise(base::errors::noSuchMember);
        const std::vector<Value> values = valuesOf(*arguments);
        const Value answer = callBack(all[static_cast<std::size_t>(number - 1)], addIn(), values);
        if (result != nullptr) *result = host::automation::toVariant(answer);
      },
      [&](const base::Error& error) { return tellInvoker(error, failure); });
}

HRESULT ConnectObject::InterfaceSupportsErrorInfo(REFIID id) {
  return id == IID_IDispatch || id == addInInterface || id == ribbonInterface ? S_OK : S_FALSE;
}

}  // namespace vellumark::addin::win32
