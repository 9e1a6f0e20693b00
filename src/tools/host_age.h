#pragma once

namespace vellumark::tools {

/// How a host counts the handles of arrows and the nodes of freeforms, by its very version.
enum class HostAge {
  old,   ///< "9.0", "10.0", "11.0"
  new_,  ///< "12.0", "14.0"
  other  ///< any other: the tools leave handles and nodes alone
};

/// Asked anew each time.
HostAge hostAge();

}  // namespace vellumark::tools
