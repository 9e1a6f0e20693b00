#include "host/automation/failures.h"

namespace vellumark::host::automation {
namespace {

/// What stands for a number of the language on COM's side.
struct Pair {
  HRESULT result;
  int number;
};
constexpr Pair pairs[] = {
    {DISP_E_MEMBERNOTFOUND, base::errors::noSuchMember},
    {DISP_E_UNKNOWNNAME, base::errors::noSuchMember},
    {DISP_E_TYPEMISMATCH, base::errors::typeMismatch},
    {DISP_E_BADPARAMCOUNT, base::errors::wrongArgumentCount},
    {DISP_E_PARAMNOTOPTIONAL, base::errors::wrongArgumentCount},
    {DISP_E_PARAMNOTFOUND, base::errors::noSuchNamedArgument},
    {DISP_E_NONAMEDARGS, base::errors::noSuchNamedArgument},
    {DISP_E_OVERFLOW, base::errors::overflow},
    {DISP_E_BADINDEX, base::errors::subscript},
    {DISP_E_DIVBYZERO, base::errors::divisionByZero},
    {E_OUTOFMEMORY, base::errors::outOfMemory},
    {E_POINTER, base::errors::objectNotSet},
};

bool isOfControls(HRESULT result) { return HRESULT_FACILITY(result) == FACILITY_CONTROL; }

int numberFor(HRESULT result) {
  for (const Pair& pair : pairs) {
    if (pair.result == result) return pair.number;
  }
  return isOfControls(result) ? HRESULT_CODE(result) : static_cast<int>(result);
}

HRESULT plainResult(int number) {
  constexpr int mostOfControls = 0xFFFF;
  if (number < 0) return static_cast<HRESULT>(number);
  if (number == 0 || number > mostOfControls) return E_FAIL;
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

}  // namespace

void raiseFor(HRESULT result, EXCEPINFO* info) {
  if (result != DISP_E_EXCEPTION || info == nullptr) base::raise(numberFor(result));
  if (info->pfnDeferredFillIn != nullptr) info->pfnDeferredFillIn(info);
  Bstr source, description, help;
  *source.out() = info->bstrSource;
  *description.out() = info->bstrDescription;
  *help.out() = info->bstrHelpFile;
  const int number = info->wCode != 0 ? info->wCode : numberFor(info->scode);
  std::string text = fromBstr(description.get());
  if (text.empty()) text = base::standardDescription(number);
  throw base::Error(number, std::move(text), fromBstr(source.get()));
}

HRESULT resultFor(const base::Error& error) {
  for (const Pair& pair : pairs) {
    if (pair.number == error.number()) return pair.result;
  }
  return plainResult(error.number());
}

HRESULT tellInvoker(const base::Error& error, EXCEPINFO* info) {
  // A failure with its standard text says all with its result.
  const HRESULT result = resultFor(error);
  const bool standard = error.description() == base::standardDescription(error.number());
  if (info == nullptr || (standard && result != plainResult(error.number()))) return result;
  *info = {};
  info->scode = plainResult(error.number());
  info->bstrSource = toBstr(error.source());
  info->bstrDescription = toBstr(error.description());
  return DISP_E_EXCEPTION;
}

HRESULT tellCaller(const base::Error& error) {
  ComPtr<ICreateErrorInfo> create;
  ComPtr<IErrorInfo> info;
  if (SUCCEEDED(CreateErrorInfo(&create)) && SUCCEEDED(create.As(&info))) {
    create->SetSource(Bstr(error.source().empty() ? "Vellumark" : error.source()).get());
    create->SetDescription(Bstr(error.description()).get());
    SetErrorInfo(0, info.Get());
  }
  return plainResult(error.number());
}

}  // namespace vellumark::host::automation
