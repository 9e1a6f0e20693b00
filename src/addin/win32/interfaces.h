#pragma once
// The interfaces through which the host speaks to an add-in, and the add-in's own id.

#include "host/automation/com.h"

namespace vellumark::addin::win32 {

/// {7C53FA9B-951D-44E4-80E2-153EE76A98BB}
inline constexpr CLSID connectClass = {
    0x7C53FA9B, 0x951D, 0x44E4, {0x80, 0xE2, 0x15, 0x3E, 0xE7, 0x6A, 0x98, 0xBB}};
inline constexpr const char* connectProgId = "zorp.Connect";

inline constexpr IID addInInterface = {
    0xB65AD801, 0xABAF, 0x11D0, {0xBB, 0x8B, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}};
inline constexpr IID ribbonInterface = {0x000C0396, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/// The host's add-in interface, in the order of its methods.
struct IDTExtensibility2 : IDispatch {
  virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, int connectMode,
                                                 IDispatch* addInInst, SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnDisconnection(int removeMode, SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;
};

/// Asks for the definition of the ribbon.
struct IRibbonExtensibility : IDispatch {
  virtual HRESULT STDMETHODCALLTYPE GetCustomUI(BSTR ribbonId, BSTR* definition) = 0;
};

}  // namespace vellumark::addin::win32
