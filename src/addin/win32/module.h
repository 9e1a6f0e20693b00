#pragma once
// The DLL itself.

#include <string>

namespace vellumark::addin::win32 {

/// Path of the DLL's own file.
std::string modulePath();
/// Its folder, without a backslash at the end.
std::string moduleFolder();
/// Whether the host may unload the DLL: nobody holds an object of it, and no lock is set.
bool canUnload();
/// Keeps the DLL loaded, or lets go again.
void lockModule(bool lock);

}  // namespace vellumark::addin::win32
