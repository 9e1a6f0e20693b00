#pragma once
// When files were changed.

#include <string>

namespace vellumark::platform {

/// When a file was changed last, as local serial date in whole seconds; 53 where there is no such file.
double lastModified(const std::string& path);

}  // namespace vellumark::platform
