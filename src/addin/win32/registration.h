#pragma once
// What the registry must say so that the host finds and loads the add-in.

#include <optional>

namespace vellumark::addin::win32 {

/// For whom the add-in is registered.
enum class Scope { user, machine };

/// Registers the DLL at its present place: the class with its server, the ProgID, and the add-in with the
/// host, which then loads it at each start. base::Error 75 where the registry refuses; what was written until
/// then is removed.
void registerAddIn(Scope scope);

/// Removes what registerAddIn() wrote; what is not there is no failure.
void unregisterAddIn(Scope scope);

/// The scope that the environment variable VELLUMARK_REGISTER names ("user" or "machine"), or else the
/// machine where this user may write for all, and the user where not.
Scope chosenScope();
/// What VELLUMARK_REGISTER says; nothing where it isn't set.
std::optional<Scope> wishedScope();

}  // namespace vellumark::addin::win32
