#include "addin/win32/loaded_dll.h"

#include <stdexcept>

namespace vellumark::test {

LoadedDll::LoadedDll() : module_(LoadLibraryW(host::automation::toWide(TEST_DLL).c_str())) {
  if (module_ == nullptr) throw std::runtime_error(TEST_DLL " can't be loaded");
}

LoadedDll::~LoadedDll() { FreeLibrary(module_); }

HRESULT LoadedDll::getClassObject(REFCLSID classId, REFIID id, void** result) const {
  return entry<HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(classId, id,
                                                                                           result);
}

ComPtr<IDispatch> LoadedDll::create() const {
  ComPtr<IClassFactory> factory;
  ComPtr<IDispatch> object;
  if (FAILED(getClassObject(addin::win32::connectClass, IID_PPV_ARGS(&factory))) ||
      FAILED(factory->CreateInstance(nullptr, IID_PPV_ARGS(&object)))) {
    throw std::runtime_error("the DLL makes no object");
  }
  return object;
}

bool LoadedDll::canUnload() const {
  return entry<HRESULT(STDMETHODCALLTYPE*)()>("DllCanUnloadNow")() == S_OK;
}

bool LoadedDll::isLoaded() { return GetModuleHandleW(L"zorp.dll") != nullptr; }

HostedAddIn::HostedAddIn(const LoadedDll& dll) : object_(dll.create()) {
  const auto query = [&](REFIID id, auto& face) {
    if (FAILED(object_->QueryInterface(id, reinterpret_cast<void**>(face.GetAddressOf())))) {
      throw std::runtime_error("the add-in lacks an interface");
    }
  };
  query(addin::win32::addInInterface, extensibility_);
  query(addin::win32::ribbonInterface, ribbon_);
}

HRESULT HostedAddIn::connect(const host::ObjectRef& application) {
  SAFEARRAY* custom = SafeArrayCreateVector(VT_VARIANT, 1, 0);
  const HRESULT result =
      extensibility_->OnConnection(host::automation::wrap(application).Get(), 1, nullptr, &custom);
  SafeArrayDestroy(custom);
  return result;
}

HRESULT HostedAddIn::disconnect() { return extensibility_->OnDisconnection(0, nullptr); }

HRESULT HostedAddIn::callBack(const std::string& name, const std::vector<host::Value>& arguments,
                              host::Value& answer) {
  std::wstring wide = host::automation::toWide(name);
  LPOLESTR names[] = {wide.data()};
  DISPID number = 0;
  const HRESULT found = object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &number);
  if (FAILED(found)) return found;
  std::vector<VARIANT> list;
  for (auto value = arguments.rbegin(); value != arguments.rend(); ++value) {
    list.push_back(host::automation::toVariant(*value));
  }
  DISPPARAMS parameters{list.data(), nullptr, static_cast<UINT>(list.size()), 0};
  host::automation::Variant result;
  EXCEPINFO info{};
  const HRESULT called = object_->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                         result.get(), &info, nullptr);
  for (VARIANT& value : list) VariantClear(&value);
  failure_ = host::automation::fromBstr(info.bstrDescription);
  SysFreeString(info.bstrDescription);
  SysFreeString(info.bstrSource);
  SysFreeString(info.bstrHelpFile);
  if (SUCCEEDED(called)) answer = host::automation::fromVariant(result.value());
  return called;
}

HRESULT HostedAddIn::customUi(std::string& definition) {
  host::automation::Bstr text;
  const HRESULT result = ribbon_->GetCustomUI(nullptr, text.out());
  definition = host::automation::fromBstr(text.get());
  return result;
}

}  // namespace vellumark::test
