#pragma once
// Globally unique ids.

#include <array>
#include <cstdint>
#include <optional>

namespace vellumark::platform {

/// The 16 bytes in the order in which their hexadecimal text is written.
using Guid = std::array<std::uint8_t, 16>;

/// A new random id (RFC 4122, version 4); nothing where the system gives no random bytes.
std::optional<Guid> newGuid();

}  // namespace vellumark::platform
