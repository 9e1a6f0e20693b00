#pragma once
// The add-in as PowerPoint reaches it: registered, made by its class id, and called through COM alone.

#include "add_in.h"

namespace vellumark::app {

/// The registered add-in. Its installation is where its DLL lies; `installation` is not looked at. A Failure
/// where it is not registered or can't be made.
std::unique_ptr<AddIn> comAddIn(const std::filesystem::path& installation);

/// Lets COM unload what nobody uses any more, and tells whether the add-in's DLL is gone.
bool addInIsUnloaded();

}  // namespace vellumark::app
