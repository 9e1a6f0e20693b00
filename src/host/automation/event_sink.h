#pragma once
// Takes the host's events and hands them to a handler.

#include "host/automation/event_interfaces.h"
#include "host/object.h"

namespace vellumark::host::automation {

/// The sink of one event interface. Hosts ask it for that interface's own id as well as for IDispatch. Once
/// disconnected it takes events without doing anything: a host may go on calling it for as long as it holds
/// it.
class EventSink : public Unknown<EventSink, IDispatch> {
 public:
  EventSink(const EventInterface& events, EventHandler handler)
      : events_(events), handler_(std::move(handler)) {}

  /// Connects a handler to the events of `source`; an empty subscription where it doesn't raise these.
  static Subscription connect(IConnectionPointContainer& source, const EventInterface& events,
                              EventHandler handler);

  void* find(REFIID id);
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID reserved, LCID locale, WORD kind,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* failure,
                                   UINT* faultyArgument) override;

 private:
  const EventInterface& events_;
  EventHandler handler_;
};

}  // namespace vellumark::host::automation
