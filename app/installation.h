#pragma once
// Where the program and its installation lie.

#include <filesystem>
#include <string>

namespace vellumark::app {

/// The root of the installation: `given`, or that of the program itself, beside its build folder
/// ("../product") or below its prefix ("../share/vellumark", or "../../share/vellumark" from a folder of its
/// own). Where the user may not write in that, it is the user's own installation, which takes everything from
/// there and is made with its first use. A Failure of usage where there is none.
std::filesystem::path installationRoot(const std::string& given);

}  // namespace vellumark::app
