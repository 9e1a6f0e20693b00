#pragma once
// Any object of the seam as a COM object, with its events: how the embedded host is served to an add-in as
// PowerPoint is.

#include <memory>
#include <vector>

#include "host/automation/event_interfaces.h"
#include "host/automation/variant.h"
#include "host/object.h"

namespace vellumark::host::automation {

/// An IDispatch whose members are those of the object, by name in any case. Their numbers are the same for
/// all classes.
ComPtr<IDispatch> serve(const ObjectRef& object);

/// The object that an IDispatch of this module serves; nothing for any other.
ObjectRef servedBehind(IDispatch* dispatch);

/// How the object looks from outside. Objects that raise events have a connection point for their event
/// interface; an argument that is a boolean goes by reference.
class ServedObject : public Unknown<ServedObject, IDispatch, IConnectionPointContainer> {
 public:
  explicit ServedObject(ObjectRef object);
  ~ServedObject() override;

  const ObjectRef& object() const { return object_; }

  void* find(REFIID id);
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID reserved, LCID locale, WORD kind,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* failure,
                                   UINT* faultyArgument) override;
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

 private:
  ObjectRef object_;
};

}  // namespace vellumark::host::automation
