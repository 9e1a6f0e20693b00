#pragma once
// An installation that its user may not write in, as one of the user's own.

#include <filesystem>

namespace vellumark::app {

/// Makes `personal` an installation that takes everything from `installed` by links, and holds what the
/// program itself writes: the user's elements and the pictures in galleries. What the user has put there
/// instead of a link stays; links to what is no longer installed go. False where that can't be made.
bool linkInstallation(const std::filesystem::path& installed, const std::filesystem::path& personal);

}  // namespace vellumark::app
