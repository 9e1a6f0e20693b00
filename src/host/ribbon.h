#pragma once
// The ribbon's objects that reach the add-in.

#include <string>

#include "host/handle.h"

namespace vellumark::host {

/// The ribbon, handed to the load callback.
class IRibbonUI : public Handle {
 public:
  using Handle::Handle;
  /// Asks all state callbacks anew.
  void Invalidate() const { call(member::Invalidate); }
  /// Asks those of one control anew.
  void InvalidateControl(const std::string& id) const { call(member::InvalidateControl, id); }
};

/// A control of the ribbon, handed to each callback.
class IRibbonControl : public Handle {
 public:
  using Handle::Handle;
  std::string Id() const { return get<std::string>(member::Id); }
  std::string Tag() const { return get<std::string>(member::Tag); }
};

}  // namespace vellumark::host
