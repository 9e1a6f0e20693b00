#pragma once
// The connection point of an object that is served over COM.

#include "host/automation/served_object.h"

namespace vellumark::host::automation {

/// Keeps sinks connected to the events of one object. The connections belong to the object, not to this view
/// of them.
class ServedEvents : public Unknown<ServedEvents, IConnectionPoint> {
 public:
  ServedEvents(ServedObject& owner, const EventInterface& events) : owner_(&owner), events_(events) {}

  void* find(REFIID id);
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

 private:
  ComPtr<ServedObject> owner_;
  const EventInterface& events_;
};

}  // namespace vellumark::host::automation
