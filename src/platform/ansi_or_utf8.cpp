#include "base/text.h"
#include "platform/ansi.h"

namespace vellumark::platform {

std::string fromAnsiOrUtf8(std::string_view bytes) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
  return base::fromUtf16(base::toUtf16(bytes)) == bytes ? std::string(bytes) : fromAnsi(bytes);
}

}  // namespace vellumark::platform
