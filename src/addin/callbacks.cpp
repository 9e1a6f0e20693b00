#include "addin/callbacks.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"

namespace vellumark::addin {
namespace {

using host::IRibbonControl;
using host::Value;
using Arguments = std::span<const Value>;

/// A callback that takes a control and answers.
template <auto Method>
Value ask(Connect& connect, Arguments arguments) {
  return Value((connect.*Method)(IRibbonControl(arguments[0].toObject())));
}

/// A callback that takes a control and answers nothing.
template <auto Method>
Value tell(Connect& connect, Arguments arguments) {
  (connect.*Method)(IRibbonControl(arguments[0].toObject()));
  return {};
}

constexpr Callback all[] = {
    {"onLoad", 1,
     [](Connect& connect, Arguments arguments) {
       connect.onLoad(host::IRibbonUI(arguments[0].toObject()));
       return Value();
     }},
    {"onAction", 1, tell<&Connect::onAction>},
    {"onActionTB", 2,
     [](Connect& connect, Arguments arguments) {
       connect.onActionTB(IRibbonControl(arguments[0].toObject()), arguments[1].toBool());
       return Value();
     }},
    {"copyright_onAction", 1, tell<&Connect::copyright_onAction>},
    {"getEnabled", 1, ask<&Connect::getEnabled>},
    {"getVisible", 1, ask<&Connect::getVisible>},
    {"getLabel", 1, ask<&Connect::getLabel>},
    {"getPressed", 1, ask<&Connect::getPressed>},
};

}  // namespace

std::span<const Callback> callbacks() { return all; }

const Callback* findCallback(std::string_view name) {
  const auto found = std::ranges::find_if(
      all, [&](const Callback& callback) { return base::equalsIgnoreCase(callback.name, name); });
  return found == std::end(all) ? nullptr : &*found;
}

host::Value callBack(const Callback& callback, Connect& connect, std::span<const host::Value> arguments) {
  if (arguments.size() != callback.arguments) base::raise(base::errors::wrongArgumentCount);
  return callback.call(connect, arguments);
}

}  // namespace vellumark::addin
