#include "host/automation/served_events.h"

#include <map>

#include "host/automation/failures.h"

namespace vellumark::host::automation {
namespace {

/// All connections of the module by cookie; cookies are never used again.
std::map<DWORD, Subscription>& connections() {
  static std::map<DWORD, Subscription> all;
  return all;
}

/// Calls a sink. Booleans go by reference, and what the sink made of them comes back.
void fire(IDispatch& sink, DISPID number, std::span<Value> arguments) {
  const std::size_t count = arguments.size();
  std::vector<Variant> values;
  std::vector<VARIANT_BOOL> flags(count);
  std::vector<VARIANT> list(count);
  values.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    values.emplace_back(arguments[i]);
    VARIANT& passed = list[count - 1 - i];
    passed = values[i].value();
    if (arguments[i].isBool()) {
      flags[i] = passed.boolVal;
      passed.vt = VT_BOOL | VT_BYREF;
      passed.pboolVal = &flags[i];
    }
  }
  DISPPARAMS parameters{list.data(), nullptr, static_cast<UINT>(count), 0};
  EXCEPINFO failure{};
  // Hosts pass over the failures of their listeners.
  const HRESULT result = sink.Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                     nullptr, &failure, nullptr);
  if (result == DISP_E_EXCEPTION) {
    try {
      raiseFor(result, &failure);
    } catch (const base::Error&) {
      return;
    }
  }
  for (std::size_t i = 0; i < count; ++i) {
    if (arguments[i].isBool()) arguments[i] = flags[i] != VARIANT_FALSE;
  }
}

}  // namespace

void* ServedEvents::find(REFIID id) {
  return id == IID_IUnknown || id == IID_IConnectionPoint ? static_cast<IConnectionPoint*>(this) : nullptr;
}

HRESULT ServedEvents::GetConnectionInterface(IID* id) {
  if (id == nullptr) return E_POINTER;
  *id = events_.id;
  return S_OK;
}

HRESULT ServedEvents::GetConnectionPointContainer(IConnectionPointContainer** container) {
  return owner_->QueryInterface(IID_PPV_ARGS(container));
}

HRESULT ServedEvents::Advise(IUnknown* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  // A sink has to know the event interface by its own id.
  ComPtr<IDispatch> listener;
  if (FAILED(sink->QueryInterface(events_.id, reinterpret_cast<void**>(listener.GetAddressOf())))) {
    return CONNECT_E_CANNOTCONNECT;
  }
  return guarded(
      [&] {
        static DWORD last = 0;
        Subscription subscription = subscribe(
            owner_->object(), [listener, &events = events_](Member name, std::span<Value> arguments) {
              if (const auto* event = events.find(name)) fire(*listener.Get(), event->number, arguments);
            });
        *cookie = ++last;
        connections().emplace(*cookie, std::move(subscription));
      },
      &resultFor);
}

HRESULT ServedEvents::Unadvise(DWORD cookie) {
  return connections().erase(cookie) == 1 ? S_OK : CONNECT_E_NOCONNECTION;
}

HRESULT ServedEvents::EnumConnections(IEnumConnections**) { return E_NOTIMPL; }

}  // namespace vellumark::host::automation
