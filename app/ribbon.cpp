#include "ribbon.h"

#include <vector>

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
  const bool all = member == member::Invalidate && arguments.empty();
  const bool one = member == member::InvalidateControl && arguments.size() == 1;
  if ((!all && !one) || kind == host::Invoke::put) base::raise(base::errors::noSuchMember);
  if (all) answers_.clear();
  if (one) answers_.erase(arguments[0].toString());
  return {};
}

host::Value Ribbon::shown(AddIn& addIn, const std::string& callback,
                          const std::shared_ptr<RibbonControl>& control, std::optional<int> index) {
  const Question question(callback, index);
  const auto& known = answers_[control->id()];
  if (const auto answer = known.find(question); answer != known.end()) return answer->second;
  std::vector<host::Value> arguments{control};
  if (index) arguments.push_back(*index);
  // The add-in may invalidate meanwhile, but what it answers now is new.
  const host::Value answer = addIn.callBack(callback, arguments);
  answers_[control->id()][question] = answer;
  return answer;
}

}  // namespace vellumark::app
