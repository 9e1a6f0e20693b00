#include "base/web_address.h"

#include <charconv>

#include "base/text.h"

namespace vellumark::base {

bool isWebAddress(std::string_view path) {
  const std::string_view scheme = path.substr(0, path.find("://"));
  return scheme.size() < path.size() &&
         (equalsIgnoreCase(scheme, "https") || equalsIgnoreCase(scheme, "http"));
}

std::string percentDecoded(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    unsigned char byte = 0;
    const char* digits = text.data() + i + 1;
    if (text[i] == '%' && i + 2 < text.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      result += static_cast<char>(byte);
      i += 2;
    } else {
      result += text[i];
    }
  }
  return result;
}

}  // namespace vellumark::base
