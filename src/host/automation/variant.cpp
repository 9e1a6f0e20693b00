#include "host/automation/variant.h"

#include "base/conversions.h"
#include "base/error.h"
#include "host/automation/automation_object.h"
#include "host/automation/served_object.h"

namespace vellumark::host::automation {
namespace {

Value fromWhole(long long number) {
  if (number >= INT32_MIN && number <= INT32_MAX) return Value(static_cast<std::int32_t>(number));
  return Value(static_cast<double>(number));
}

Value fromUnknown(IUnknown* unknown) {
  if (unknown == nullptr) return Value(ObjectRef());
  ComPtr<IDispatch> dispatch;
  if (FAILED(unknown->QueryInterface(IID_PPV_ARGS(&dispatch)))) base::raise(base::errors::typeMismatch);
  return Value(unwrap(dispatch.Get()));
}

/// Dates, currencies and decimals by the system's own conversion.
Value converted(const VARIANT& value) {
  Variant number;
  if (FAILED(VariantChangeType(number.get(), const_cast<VARIANT*>(&value), 0, VT_R8)))
    base::raise(base::errors::typeMismatch);
  return Value(number.value().dblVal);
}

}  // namespace

Variant::Variant(const Value& value) : value_(toVariant(value)) {}

VARIANT toVariant(const Value& value) {
  VARIANT result;
  VariantInit(&result);
  if (value.isEmpty()) return result;
  if (value.isMissing()) {
    result.vt = VT_ERROR;
    result.scode = DISP_E_PARAMNOTFOUND;
  } else if (value.isString()) {
    result.bstrVal = toBstr(value.toString());
    result.vt = VT_BSTR;
  } else if (value.isObject()) {
    result.vt = VT_DISPATCH;
    result.pdispVal = value == Value(ObjectRef()) ? nullptr : wrap(value.toObject()).Detach();
  } else if (value.isBool()) {
    result.vt = VT_BOOL;
    result.boolVal = value.toBool() ? VARIANT_TRUE : VARIANT_FALSE;
  } else if (value.isSingle()) {
    result.vt = VT_R4;
    result.fltVal = value.toFloat();
  } else if (value.isFloating()) {
    result.vt = VT_R8;
    result.dblVal = value.toDouble();
  } else {
    result.vt = VT_I4;
    result.lVal = value.toInt();
  }
  return result;
}

Value fromVariant(const VARIANT& value) {
  if ((value.vt & VT_BYREF) != 0) {
    Variant inner;
    if (FAILED(VariantCopyInd(inner.get(), const_cast<VARIANT*>(&value))))
      base::raise(base::errors::typeMismatch);
    return fromVariant(inner.value());
  }
  switch (value.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_ERROR:
      if (value.scode == DISP_E_PARAMNOTFOUND) return missing;
      return Value(static_cast<std::int32_t>(value.scode));
    case VT_BOOL:
      return Value(value.boolVal != VARIANT_FALSE);
    case VT_I1:
      return fromWhole(static_cast<signed char>(value.cVal));
    case VT_UI1:
      return fromWhole(value.bVal);
    case VT_I2:
      return fromWhole(value.iVal);
    case VT_UI2:
      return fromWhole(value.uiVal);
    case VT_I4:
    case VT_INT:
      return fromWhole(value.lVal);
    case VT_UI4:
    case VT_UINT:
      return fromWhole(value.ulVal);
    case VT_I8:
      return fromWhole(value.llVal);
    case VT_UI8:
      return value.ullVal > INT32_MAX ? Value(static_cast<double>(value.ullVal)) : fromWhole(value.llVal);
    case VT_R4:
      return Value(value.fltVal);
    case VT_R8:
      return Value(value.dblVal);
    case VT_CY:
    case VT_DATE:
    case VT_DECIMAL:
      return converted(value);
    case VT_BSTR:
      return Value(fromBstr(value.bstrVal));
    case VT_DISPATCH:
      return Value(unwrap(value.pdispVal));
    case VT_UNKNOWN:
      return fromUnknown(value.punkVal);
    default:
      base::raise(base::errors::typeMismatch);
  }
}

void writeBack(const VARIANT& reference, const Value& value) {
  switch (reference.vt) {
    case VT_BOOL | VT_BYREF:
      *reference.pboolVal = value.toBool() ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case VT_I2 | VT_BYREF:
      *reference.piVal = base::toInt16(value.toDouble());
      break;
    case VT_I4 | VT_BYREF:
      *reference.plVal = value.toInt();
      break;
    case VT_R4 | VT_BYREF:
      *reference.pfltVal = value.toFloat();
      break;
    case VT_R8 | VT_BYREF:
      *reference.pdblVal = value.toDouble();
      break;
    case VT_BSTR | VT_BYREF: {
      const BSTR text = toBstr(value.toString());
      SysFreeString(*reference.pbstrVal);
      *reference.pbstrVal = text;
      break;
    }
    case VT_VARIANT | VT_BYREF: {
      const VARIANT written = toVariant(value);
      VariantClear(reference.pvarVal);
      *reference.pvarVal = written;
      break;
    }
    default:
      break;
  }
}

ComPtr<IDispatch> wrap(const ObjectRef& object) {
  if (const auto* automation = dynamic_cast<const AutomationObject*>(object.get()))
    return automation->dispatch();
  return serve(object);
}

ObjectRef unwrap(IDispatch* dispatch) {
  if (dispatch == nullptr) return nullptr;
  if (ObjectRef served = servedBehind(dispatch)) return served;
  return std::make_shared<AutomationObject>(dispatch);
}

}  // namespace vellumark::host::automation
