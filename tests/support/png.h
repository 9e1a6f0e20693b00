#pragma once
// Pictures made in code.

#include <string>

namespace vellumark::test {

/// A PNG of one colour, "RRGGBB".
std::string png(int width, int height, const std::string& color);

}  // namespace vellumark::test
