#include "platform/guid.h"

#include <sys/random.h>

namespace vellumark::platform {

std::optional<Guid> newGuid() {
  Guid guid{};
  // A request of this size is answered whole or not at all.
  if (getrandom(guid.data(), guid.size(), 0) != static_cast<ssize_t>(guid.size())) return std::nullopt;
  guid[6] = static_cast<std::uint8_t>((guid[6] & 0x0F) | 0x40);  // version 4
  guid[8] = static_cast<std::uint8_t>((guid[8] & 0x3F) | 0x80);  // the variant of RFC 4122
  return guid;
}

}  // namespace vellumark::platform
