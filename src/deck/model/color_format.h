#pragma once
// A colour of something as an object.

#include <functional>

#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

/// Where a colour stands in the file. Both are asked anew at each use.
struct ColorPlace {
  Sheet sheet;
  std::function<bool()> deleted;
  /// The colour element as it is in effect, inherited or not, and what "phClr" in it stands for; nothing
  /// where there is no colour.
  struct Found {
    pugi::xml_node element;
    pugi::xml_node placeholder;
  };
  std::function<Found()> find;
  /// Lets `write` put a new colour into its holders (a:solidFill), made where they are missing.
  std::function<void(const std::function<void(pugi::xml_node holder)>& write)> change;
};

host::ObjectRef makeColorFormat(const HostRef& host, ColorPlace place);

}  // namespace vellumark::deck
