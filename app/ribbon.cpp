#include "ribbon.h"

#include "base/error.h"

namespace vellumark::app {

namespace member = host::member;

host::Value RibbonControl::invoke(host::Member member, host::Invoke kind,
                                  std::span<const host::Value> arguments) {
  if (kind == host::Invoke::put || !arguments.empty()) base::raise(base::errors::noSuchMember);
  if (member == member::Id) return id_;
  if (member == member::Tag) return tag_;
  base::raise(base::errors::noSuchMember);
}

host::IRibbonControl ribbonControl(int number) {
  return host::IRibbonControl(std::make_shared<RibbonControl>("zp_" + std::to_string(number)));
}

host::Value Ribbon::invoke(host::Member member, host::Invoke kind, std::span<const host::Value> arguments) {
  const bool known = (member == member::Invalidate && arguments.empty()) ||
                     (member == member::InvalidateControl && arguments.size() == 1);
  if (!known || kind == host::Invoke::put) base::raise(base::errors::noSuchMember);
  ++invalidations_;
  return {};
}

}  // namespace vellumark::app
