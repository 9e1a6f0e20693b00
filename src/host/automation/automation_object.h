#pragma once
// An object of a host that speaks COM.

#include "host/automation/com.h"
#include "host/object.h"

namespace vellumark::host::automation {

/// The seam over IDispatch: one class serves the whole object model. Like everything of the host, it is used
/// on the thread on which the host handed the object out.
class AutomationObject : public Object, public EventSource {
 public:
  explicit AutomationObject(IDispatch* dispatch) : dispatch_(dispatch) {}

  const ComPtr<IDispatch>& dispatch() const { return dispatch_; }

  /// The class as its type information names it, without the underline of default interfaces; empty without
  /// type information.
  std::string typeName() const override;
  Value invoke(Member member, Invoke kind, std::span<const Value> arguments) override;
  Subscription subscribe(EventHandler handler) override;

 private:
  DISPID numberOf(Member member);
  IID type();

  ComPtr<IDispatch> dispatch_;
  bool typeKnown_ = false;
  IID type_{};  ///< of the type information; null where there is none
};

}  // namespace vellumark::host::automation
