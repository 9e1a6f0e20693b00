#pragma once
// Addresses of the web.

#include <string>
#include <string_view>

namespace vellumark::base {

/// Whether a path is an address of the web instead, as that of a file in the cloud.
bool isWebAddress(std::string_view path);
/// "%20" and its like as the bytes that they stand for.
std::string percentDecoded(std::string_view text);

}  // namespace vellumark::base
