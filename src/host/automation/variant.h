#pragma once
// The one conversion between the seam's values and COM's.

#include "host/automation/com.h"
#include "host/value.h"

namespace vellumark::host::automation {

/// A VARIANT that clears itself.
class Variant {
 public:
  Variant() { VariantInit(&value_); }
  /// As toVariant().
  explicit Variant(const Value& value);
  ~Variant() { VariantClear(&value_); }
  Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  Variant& operator=(Variant&&) = delete;
  VARIANT* get() { return &value_; }
  const VARIANT& value() const { return value_; }
  /// Leaves the value to the caller.
  VARIANT release() {
    const VARIANT value = value_;
    VariantInit(&value_);
    return value;
  }

 private:
  VARIANT value_;
};

/// Booleans become VT_BOOL, whole numbers VT_I4, singles VT_R4, texts BSTRs, what is left out the "parameter
/// not found" of VT_ERROR, and objects their IDispatch. The caller clears the result.
VARIANT toVariant(const Value& value);

/// Whole numbers of all sizes become 32-bit integers (doubles where they don't fit), currency, dates and
/// decimals doubles, objects what unwrap() gives; what is passed by reference is read. 13 for what the seam
/// has no type for (arrays, records).
Value fromVariant(const VARIANT& value);

/// Writes `value` to where a variant that is passed by reference points, in the type that stands there. Does
/// nothing for other variants.
void writeBack(const VARIANT& reference, const Value& value);

/// The object as others see it, with a reference that the caller releases: the IDispatch that it stands for,
/// or one that serves it. The same object gives the same IDispatch as long as that lives.
ComPtr<IDispatch> wrap(const ObjectRef& object);
/// The object behind an IDispatch: ours again where this module serves it, else one that speaks to it.
/// Nothing for null.
ObjectRef unwrap(IDispatch* dispatch);

}  // namespace vellumark::host::automation
