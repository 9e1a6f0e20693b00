#include "host/automation/event_sink.h"

#include <vector>

#include "host/automation/failures.h"
#include "host/automation/variant.h"

namespace vellumark::host::automation {

Subscription EventSink::connect(IConnectionPointContainer& source, const EventInterface& events,
                                EventHandler handler) {
  ComPtr<IConnectionPoint> point;
  if (FAILED(source.FindConnectionPoint(events.id, &point))) return {};
  const ComPtr<EventSink> sink = adopt(new EventSink(events, std::move(handler)));
  DWORD cookie = 0;
  const HRESULT result = point->Advise(sink.Get(), &cookie);
  if (FAILED(result)) raiseFor(result);
  return Subscription([point, sink, cookie] {
    sink->handler_ = nullptr;
    point->Unadvise(cookie);  // a host that is gone has forgotten the sink anyhow
  });
}

void* EventSink::find(REFIID id) {
  const bool known = id == IID_IUnknown || id == IID_IDispatch || id == events_.id;
  return known ? static_cast<IDispatch*>(this) : nullptr;
}

HRESULT EventSink::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT EventSink::GetTypeInfo(UINT, LCID, ITypeInfo**) { return E_NOTIMPL; }

HRESULT EventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) { return DISP_E_UNKNOWNNAME; }

HRESULT EventSink::Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                          EXCEPINFO* failure, UINT*) {
  const EventInterface::Event* event = events_.find(number);
  if (event == nullptr || handler_ == nullptr) return S_OK;
  if (arguments == nullptr) return E_POINTER;
  // The handler may disconnect itself; neither it nor the sink goes away under it.
  const ComPtr<EventSink> self(this);
  EventHandler handler;
  return guarded(
      [&] {
        handler = handler_;
        const UINT count = arguments->cArgs;
        std::vector<Value> values;
        for (UINT i = 0; i < count; ++i) values.push_back(fromVariant(arguments->rgvarg[count - 1 - i]));
        const std::vector<Value> before = values;
        handler(event->name, values);
        for (UINT i = 0; i < count; ++i) {
          if (values[i] != before[i]) writeBack(arguments->rgvarg[count - 1 - i], values[i]);
        }
      },
      [&](const base::Error& error) { return tellInvoker(error, failure); });
}

}  // namespace vellumark::host::automation
