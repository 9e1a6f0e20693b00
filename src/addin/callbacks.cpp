#include "addin/callbacks.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "host/running_call.h"

namespace vellumark::addin {
namespace {

using host::IRibbonControl;
using host::Value;
using Arguments = std::span<const Value>;

/// Counts and places are 16-bit in the system.
template <typename T>
Value answer(T value) {
  if constexpr (std::is_same_v<T, std::int16_t>) {
    return Value(std::int32_t{value});
  } else {
    return Value(std::move(value));
  }
}

/// A callback that takes a control and answers.
template <auto Method>
Value ask(Connect& connect, Arguments arguments) {
  return answer((connect.*Method)(IRibbonControl(arguments[0].toObject())));
}

/// A callback that takes a control and answers nothing.
template <auto Method>
Value tell(Connect& connect, Arguments arguments) {
  (connect.*Method)(IRibbonControl(arguments[0].toObject()));
  return {};
}

/// A callback of a list: the control and a place in it.
template <auto Method>
Value askItem(Connect& connect, Arguments arguments) {
  return answer((connect.*Method)(IRibbonControl(arguments[0].toObject()), arguments[1].toInt()));
}

/// An entry of a list was chosen: the control, the entry's id and its place.
template <auto Method>
Value choose(Connect& connect, Arguments arguments) {
  (connect.*Method)(IRibbonControl(arguments[0].toObject()), arguments[1].toString(), arguments[2].toInt());
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
    {"getImage", 1, ask<&Connect::getImage>},
    {"copyright_getContent", 1, ask<&Connect::copyright_getContent>},
    {"style_getItemCount", 1, ask<&Connect::style_getItemCount>},
    {"style_getItemLabel", 2, askItem<&Connect::style_getItemLabel>},
    {"style_getSelectedItemIndex", 1, ask<&Connect::style_getSelectedItemIndex>},
    {"style_onAction", 3, choose<&Connect::style_onAction>},
    {"slideWizard_getContent", 1, ask<&Connect::slideWizard_getContent>},
    {"slideWizard_getItemCount", 1, ask<&Connect::slideWizard_getItemCount>},
    {"slideWizard_getItemLabel", 2, askItem<&Connect::slideWizard_getItemLabel>},
    {"slideWizard_getItemImage", 2, askItem<&Connect::slideWizard_getItemImage>},
    {"slideWizard_onAction", 3, choose<&Connect::slideWizard_onAction>},
    {"myElements_getContent", 1, ask<&Connect::myElements_getContent>},
    {"myElements_getItemCount", 1, ask<&Connect::myElements_getItemCount>},
    {"myElements_getItemLabel", 2, askItem<&Connect::myElements_getItemLabel>},
    {"myElements_getItemImage", 2, askItem<&Connect::myElements_getItemImage>},
    {"myElements_onAction", 3, choose<&Connect::myElements_onAction>},
};

}  // namespace

std::span<const Callback> callbacks() { return all; }

const Callback* findCallback(std::string_view name) {
  const auto found = std::ranges::find_if(
      all, [&](const Callback& callback) { return base::equalsIgnoreCase(callback.name, name); });
  return found == std::end(all) ? nullptr : &*found;
}

host::Value callBack(const Callback& callback, Connect& connect, std::span<const host::Value> arguments) {
  const host::RunningCall call;
  if (arguments.size() != callback.arguments) base::raise(base::errors::wrongArgumentCount);
  return callback.call(connect, arguments);
}

}  // namespace vellumark::addin
