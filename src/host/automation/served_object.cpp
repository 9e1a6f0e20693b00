#include "host/automation/served_object.h"

#include <map>
#include <utility>

#include "host/automation/failures.h"
#include "host/automation/served_events.h"
#include "host/automation/served_type.h"

namespace vellumark::host::automation {
namespace {

/// Those that others hold now, by the object. Objects of a host live on one thread, and so does this.
std::map<const Object*, ServedObject*>& served() {
  static std::map<const Object*, ServedObject*> objects;
  return objects;
}

/// Member numbers are those of the interned names, from 1: 0 means an object's default member.
DISPID numberOf(Member member) { return member.id() + 1; }
Member memberOf(DISPID number) {
  if (number < 1 || number > static_cast<DISPID>(UINT16_MAX)) base::raise(base::errors::noSuchMember);
  return Member(Member::Known{static_cast<std::uint16_t>(number - 1)});
}

Invoke kindOf(WORD flags) {
  if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) return Invoke::put;
  return (flags & DISPATCH_PROPERTYGET) != 0 ? Invoke::get : Invoke::call;
}

}  // namespace

ComPtr<IDispatch> serve(const ObjectRef& object) {
  ComPtr<IDispatch> result;
  if (const auto known = served().find(object.get()); known != served().end()) {
    result = known->second;
  } else {
    result = adopt(new ServedObject(object));
  }
  return result;
}

ObjectRef servedBehind(IDispatch* dispatch) {
  for (const auto& [object, outside] : served()) {
    if (static_cast<IDispatch*>(outside) == dispatch) return outside->object();
  }
  return nullptr;
}

ServedObject::ServedObject(ObjectRef object) : object_(std::move(object)) { served()[object_.get()] = this; }

ServedObject::~ServedObject() { served().erase(object_.get()); }

void* ServedObject::find(REFIID id) {
  if (id == IID_IUnknown || id == IID_IDispatch) return static_cast<IDispatch*>(this);
  const bool raisesEvents = dynamic_cast<EventSource*>(object_.get()) != nullptr;
  if (id == IID_IConnectionPointContainer && raisesEvents)
    return static_cast<IConnectionPointContainer*>(this);
  return nullptr;
}

HRESULT ServedObject::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT ServedObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return guarded([&] { *info = new ServedType(object_->typeName()); }, &resultFor);
}

HRESULT ServedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (names == nullptr || ids == nullptr || count == 0) return E_POINTER;
  const HRESULT result = guarded([&] { ids[0] = numberOf(Member(fromWide(names[0]))); }, &resultFor);
  // Arguments have no names.
  for (UINT i = 1; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  return SUCCEEDED(result) && count > 1 ? DISP_E_UNKNOWNNAME : result;
}

HRESULT ServedObject::Invoke(DISPID number, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                             EXCEPINFO* failure, UINT*) {
  if (arguments == nullptr) return E_POINTER;
  const ComPtr<ServedObject> self(this);
  return guarded(
      [&] {
        const host::Invoke kind = kindOf(flags);
        if (arguments->cNamedArgs > (kind == host::Invoke::put ? 1u : 0u)) {
          base::raise(base::errors::noSuchNamedArgument);
        }
        std::vector<Value> values;
        for (UINT i = arguments->cArgs; i-- > 0;) values.push_back(fromVariant(arguments->rgvarg[i]));
        const Value answer = object_->invoke(memberOf(number), kind, values);
        if (result != nullptr) *result = toVariant(answer);
      },
      [&](const base::Error& error) { return tellInvoker(error, failure); });
}

HRESULT ServedObject::EnumConnectionPoints(IEnumConnectionPoints**) { return E_NOTIMPL; }

HRESULT ServedObject::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  for (const EventInterface& events : eventInterfaces()) {
    if (events.id == id && object_->typeName() == events.source) {
      return guarded([&] { *point = new ServedEvents(*this, events); }, &resultFor);
    }
  }
  return CONNECT_E_NOCONNECTION;
}

}  // namespace vellumark::host::automation
