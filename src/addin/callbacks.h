#pragma once
// The ribbon's callbacks by the names under which its definition calls them.

#include <span>
#include <string_view>

#include "addin/connect.h"

namespace vellumark::addin {

struct Callback {
  const char* name;
  std::size_t arguments;  ///< how many the host hands over
  host::Value (*call)(Connect& connect, std::span<const host::Value> arguments);
};

/// All of them. A callback's number, where one is needed, is its place in this list.
std::span<const Callback> callbacks();
/// The callback of that name in any case; nothing where there is none.
const Callback* findCallback(std::string_view name);
/// Calls it. 450 for a wrong number of arguments; failures of the callback itself pass on to the host.
host::Value callBack(const Callback& callback, Connect& connect, std::span<const host::Value> arguments);

}  // namespace vellumark::addin
