#pragma once
// The animations of a slide as the object model has them: the main sequence, its effects, their behaviours.

#include "deck/model/host_state.h"
#include "host/object.h"

namespace vellumark::deck {

host::ObjectRef makeTimeLine(const HostRef& host, const Sheet& slide);

}  // namespace vellumark::deck
