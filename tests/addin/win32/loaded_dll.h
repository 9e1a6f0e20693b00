#pragma once
// The DLL as a host holds it.

#include <string>
#include <vector>

#include "addin/win32/interfaces.h"
#include "host/automation/variant.h"

namespace vellumark::test {

using host::automation::ComPtr;

/// Loads the DLL and calls its entry points, as COM does, without a registration.
class LoadedDll {
 public:
  LoadedDll();
  ~LoadedDll();
  LoadedDll(const LoadedDll&) = delete;
  LoadedDll& operator=(const LoadedDll&) = delete;

  /// A new object of the class Connect.
  ComPtr<IDispatch> create() const;
  bool canUnload() const;
  HRESULT getClassObject(REFCLSID classId, REFIID id, void** result) const;
  /// Whether Windows has it in memory.
  static bool isLoaded();

 private:
  template <typename Function>
  Function entry(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }
  HMODULE module_;
};

/// One object of the class Connect, with the calls that a host makes. Each gives the result that the host
/// sees.
class HostedAddIn {
 public:
  explicit HostedAddIn(const LoadedDll& dll);
  /// Lets go without another word.
  ~HostedAddIn() = default;

  HRESULT connect(const host::ObjectRef& application);
  HRESULT disconnect();
  /// Calls a callback by name; `answer` stays empty where it fails.
  HRESULT callBack(const std::string& name, const std::vector<host::Value>& arguments, host::Value& answer);
  HRESULT customUi(std::string& definition);
  /// Description of the last failure of callBack().
  const std::string& failure() const { return failure_; }
  IDispatch* object() const { return object_.Get(); }

 private:
  ComPtr<IDispatch> object_;
  ComPtr<addin::win32::IDTExtensibility2> extensibility_;
  ComPtr<addin::win32::IRibbonExtensibility> ribbon_;
  std::string failure_;
};

}  // namespace vellumark::test
