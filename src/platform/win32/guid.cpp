#include "platform/guid.h"

#include <objbase.h>

namespace vellumark::platform {

std::optional<Guid> newGuid() {
  GUID id;
  if (FAILED(CoCreateGuid(&id))) return std::nullopt;
  Guid guid{};
  auto place = guid.begin();
  const auto put = [&](std::uint32_t number, int bytes) {
    for (int i = bytes - 1; i >= 0; --i) *place++ = static_cast<std::uint8_t>(number >> (8 * i));
  };
  put(id.Data1, 4);
  put(id.Data2, 2);
  put(id.Data3, 2);
  for (const std::uint8_t byte : id.Data4) put(byte, 1);
  return guid;
}

}  // namespace vellumark::platform
