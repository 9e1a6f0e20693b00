#pragma once
// A host that takes nothing but what is documented of PowerPoint's object model.

#include "host/object.h"

namespace vellumark::test {

/// The object, and all that it hands out, behind the documented object model. A member that its class doesn't
/// have is 438, and so is a put to a method or to a property that can only be read; too many or too few
/// arguments are 450. Arguments and results are converted to their documented types, 13 where that is
/// impossible. What it hands out is another object each time, as it is over COM.
host::ObjectRef strict(host::ObjectRef object);

}  // namespace vellumark::test
