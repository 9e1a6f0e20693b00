#pragma once
// The add-in as the host sees it.

#include <memory>

#include "addin/win32/interfaces.h"
#include "addin/win32/running_add_in.h"
#include "host/automation/com.h"

namespace vellumark::addin::win32 {

/// The COM object of the class Connect. It has three faces that all dispatch, each with numbers of its own:
/// the add-in interface, the ribbon interface, and its default one, which answers the ribbon's callbacks by
/// name. Failures in what the host calls become results and error information; nothing is ever thrown into
/// the host.
class ConnectObject : public host::automation::Unknown<ConnectObject, IDispatch, ISupportErrorInfo> {
 public:
  ConnectObject();
  /// Disconnects, if the host didn't.
  ~ConnectObject() override;

  void* find(REFIID id);

  void connect(IDispatch* application, int connectMode, IDispatch* addInInst, SAFEARRAY* custom);
  void disconnect(int removeMode, SAFEARRAY* custom);
  /// The connected add-in; 91 where none is.
  Connect& addIn();

  // The default interface.
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID number, REFIID reserved, LCID locale, WORD kind,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* failure,
                                   UINT* faultyArgument) override;

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;

 private:
  class AddInFace;
  class RibbonFace;

  std::unique_ptr<AddInFace> addInFace_;
  std::unique_ptr<RibbonFace> ribbonFace_;
  std::shared_ptr<RunningAddIn> running_;  ///< while this object is connected
};

}  // namespace vellumark::addin::win32
